#include "app/editor/unsavedchanges.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

namespace unsavedchanges {

namespace {

// A question that grows beyond the screen has no buttons to press.
constexpr int namedTitles = 12;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(unsavedchanges)
};

QString question(const QStringList &titles)
{
    if (titles.size() == 1)
        return Texts::tr("\"%1\" has changes that are not saved.").arg(titles.first());
    return Texts::tr("%n files have changes that are not saved.", nullptr, int(titles.size()));
}

QString list(const QStringList &titles)
{
    if (titles.size() == 1)
        return Texts::tr("Without saving, they are lost.");
    return named(titles) + u"\n\n"_s + Texts::tr("Without saving, the changes are lost.");
}

} // namespace

QString named(const QStringList &titles)
{
    QStringList lines = titles.first(qMin(titles.size(), namedTitles));
    if (titles.size() > namedTitles)
        lines.append(Texts::tr("and %n more", nullptr, int(titles.size() - namedTitles)));
    return lines.join(u'\n');
}

Answer ask(QWidget *parent, const QStringList &titles)
{
    QMessageBox box(QMessageBox::Warning, Texts::tr("Unsaved Changes"), question(titles),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, parent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(list(titles));
    box.setDefaultButton(QMessageBox::Save);
    box.setEscapeButton(QMessageBox::Cancel);
    if (titles.size() > 1) {
        box.button(QMessageBox::Save)->setText(Texts::tr("&Save All"));
        box.button(QMessageBox::Discard)->setText(Texts::tr("&Discard All"));
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
