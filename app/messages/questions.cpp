#include "app/messages/questions.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype lineLimit = 12;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(questions)
};

// Shows so many of the lines as fit a screen, all of them behind the button for details.
void setLines(QMessageBox &box, const QString &question, const QStringList &lines)
{
    box.setTextFormat(Qt::PlainText);
    box.setText(question);
    QStringList shown = lines.first(std::min(lines.size(), lineLimit));
    if (lines.size() > lineLimit) {
        shown.append(Texts::tr("... and %n more", nullptr, int(lines.size() - lineLimit)));
        box.setDetailedText(lines.join(u'\n'));
    }
    box.setInformativeText(shown.join(u'\n'));
}

} // namespace

bool questions::mayDelete(QWidget *window, const QString &question, const QStringList &paths)
{
    QMessageBox box(QMessageBox::Warning, Texts::tr("Delete"), QString(), QMessageBox::Cancel,
                    window);
    setLines(box, question, paths);
    const auto *agreed = box.addButton(Texts::tr("&Delete for Good"), QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == agreed;
}

questions::Deletion questions::howToDelete(QWidget *window, const QString &question,
                                           const QStringList &paths)
{
    QMessageBox box(QMessageBox::Warning, Texts::tr("Delete from Disk"), QString(),
                    QMessageBox::Cancel, window);
    setLines(box, question, paths);
    const auto *trash = box.addButton(Texts::tr("Move to &Trash"), QMessageBox::DestructiveRole);
    const auto *permanent =
        box.addButton(Texts::tr("&Delete for Good"), QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    if (box.clickedButton() == trash)
        return Deletion::ToTrash;
    return box.clickedButton() == permanent ? Deletion::Permanent : Deletion::None;
}

bool questions::mayRemove(QWidget *window, const QStringList &names)
{
    QMessageBox box(QMessageBox::Question, Texts::tr("Remove from Design"), QString(),
                    QMessageBox::Cancel, window);
    setLines(box,
             names.size() == 1
                 ? Texts::tr("Remove this item from its design? Nothing is deleted from "
                             "disk.")
                 : Texts::tr("Remove these items from their design? Nothing is deleted "
                             "from disk."),
             names);
    auto *agreed = box.addButton(Texts::tr("&Remove"), QMessageBox::AcceptRole);
    box.setDefaultButton(agreed);
    box.exec();
    return box.clickedButton() == agreed;
}
