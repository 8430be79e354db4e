#include "app/editor/unsavedchanges.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

namespace unsavedchanges {

namespace {

// A question that grows beyond the screen has no buttons to press.
constexpr int namedTitles = 12;

QString text(const char *sentence, int number = -1)
{
    return QCoreApplication::translate("unsavedchanges", sentence, nullptr, number);
}

QString question(const QStringList &titles)
{
    if (titles.size() == 1)
        return text("\"%1\" has changes that are not saved.").arg(titles.first());
    return text("%1 files have changes that are not saved.").arg(titles.size());
}

QString list(const QStringList &titles)
{
    if (titles.size() == 1)
        return text("Without saving, they are lost.");
    QStringList lines = titles.first(qMin(titles.size(), namedTitles));
    if (titles.size() > namedTitles)
        lines.append(text("and %1 more").arg(titles.size() - namedTitles));
    return lines.join(u'\n') + u"\n\n"_s + text("Without saving, the changes are lost.");
}

} // namespace

Answer ask(QWidget *parent, const QStringList &titles)
{
    QMessageBox box(QMessageBox::Warning, text("Unsaved Changes"), question(titles),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, parent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(list(titles));
    box.setDefaultButton(QMessageBox::Save);
    box.setEscapeButton(QMessageBox::Cancel);
    if (titles.size() > 1) {
        box.button(QMessageBox::Save)->setText(text("&Save All"));
        box.button(QMessageBox::Discard)->setText(text("&Discard All"));
    }
    switch (box.exec()) {
    case QMessageBox::Save:
        return Answer::Save;
    case QMessageBox::Discard:
        return Answer::Discard;
    default:
        return Answer::Cancel;
    }
}

} // namespace unsavedchanges
