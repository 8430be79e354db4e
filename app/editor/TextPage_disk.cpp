// What a page of text does about its file on disk.

#include "app/editor/DifferenceDialog.h"
#include "app/editor/NoticeBar.h"
#include "app/editor/PositionBar.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

// The part in which one text differs from another: where it begins, and how long the ends are
// that both have in common.
struct Difference
{
    Difference(const QString &old, const QString &text)
    {
        const auto shorter = qMin(old.size(), text.size());
        const auto head = std::mismatch(old.begin(), old.begin() + shorter, text.begin());
        begin = head.first - old.begin();
        const auto tail =
            std::mismatch(old.rbegin(), old.rbegin() + shorter - begin, text.rbegin());
        tailSize = tail.first - old.rbegin();
    }

    qsizetype begin;
    qsizetype tailSize;
};

QString linesOf(const QTextDocument &document)
{
    QString text;
    text.reserve(document.characterCount());
    for (QTextBlock block = document.firstBlock(); block.isValid(); block = block.next())
        text += block.text() + u'\n';
    text.chop(1);
    return text;
}

// Makes the text another one, as one step that can be undone. Only the part that differs is
// replaced, so that the cursor stays with its text; within that part it stays in its line.
void replaceText(TextEdit *edit, const QString &text)
{
    const QString old = linesOf(*edit->document());
    const Difference difference(old, text);
    const auto end = old.size() - difference.tailSize;
    const QTextCursor was = edit->textCursor();
    const bool within = was.position() > difference.begin && was.position() < end;
    const int line = was.blockNumber();
    const int column = was.positionInBlock();
    const int scrolled = edit->verticalScrollBar()->value();

    QTextCursor cursor(edit->document());
    cursor.setPosition(int(difference.begin));
    cursor.setPosition(int(end), QTextCursor::KeepAnchor);
    cursor.insertText(
        text.sliced(difference.begin, text.size() - difference.begin - difference.tailSize));
    if (within) {
        const QTextBlock block =
            edit->document()->findBlockByNumber(qMin(line, edit->blockCount() - 1));
        cursor.setPosition(block.position() + qMin(column, block.length() - 1));
        edit->setTextCursor(cursor);
    }
    edit->verticalScrollBar()->setValue(scrolled);
}

} // namespace

bool TextPage::save(QString *error)
{
    error->clear();
    const QString reason = readOnlyReason();
    if (!isModified())
        return true;
    if (!reason.isEmpty()) {
        *error = tr("Cannot write \"%1\": %2").arg(file->path(), reason);
        return false;
    }
    const TextFile::Disk now = file->look(TextFile::Trust::Nothing);
    if (now == TextFile::Disk::Changed) {
        setDisk(now, unreadable);
        return false;
    }
    // The page may be gone when the question is answered.
    const QPointer<TextPage> self(this);
    if (now == TextFile::Disk::Missing && !mayMakeAgain())
        return false;
    return self && write(error);
}

bool TextPage::saveCopy(const QString &path, QString *error) const
{
    return file->writeCopy(path, text(), error);
}

void TextPage::showEvent(QShowEvent *event)
{
    EditorPage::showEvent(event);
    checkDisk(TextFile::Trust::Stamp);
}

// Not every file system tells of changes; who comes back to the window sees them anyway.
void TextPage::changeEvent(QEvent *event)
{
    EditorPage::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && isVisible())
        checkDisk(TextFile::Trust::Stamp);
}

void TextPage::checkDisk(TextFile::Trust trust)
{
    const TextFile::Disk now = file->look(trust);
    if (now == TextFile::Disk::Changed && !edit->document()->isModified())
        reload();
    else
        setDisk(now);
}

void TextPage::setDisk(TextFile::Disk state, const QString &why)
{
    const bool was = isModified();
    disk = state;
    unreadable = why;
    updateNotice();
    if (isModified() != was)
        Q_EMIT stateChanged();
}

void TextPage::reload()
{
    QString error;
    const std::optional<lineends::Lines> lines = file->read(&error);
    if (!lines) {
        setDisk(file->look(TextFile::Trust::Nothing), error);
        return;
    }
    replaceText(edit, lines->text);
    lineends::mark(edit->document(), *lines);
    usualEnd = lines->usual;
    position->setForm(file->form());
    edit->document()->setModified(false);
    setHold(Permission, file->isWritable() ? QString() : tr("you may not write to the file"));
    setDisk(TextFile::Disk::Same);
}

void TextPage::keepMine()
{
    file->accept();
    setDisk(file->look(TextFile::Trust::Nothing));
}

void TextPage::showDifference()
{
    QString error;
    const std::optional<QString> onDisk = file->textOnDisk(&error);
    if (!onDisk) {
        QMessageBox::warning(this, tr("No Difference Shown"), error);
        return;
    }
    auto *dialog = new DifferenceDialog(title(), *onDisk, linesOf(*edit->document()), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
}

bool TextPage::write(QString *error)
{
    if (!file->write(text(), error))
        return false;
    edit->document()->setModified(false);
    setDisk(TextFile::Disk::Same);
    return true;
}

void TextPage::writeOrTell()
{
    QString error;
    if (!write(&error))
        QMessageBox::warning(this, tr("Not Saved"), error);
}

bool TextPage::mayMakeAgain()
{
    const auto answer =
        QMessageBox::question(this, tr("File Is Gone"),
                              tr("\"%1\" is no longer on disk. Write it again?").arg(file->path()),
                              QMessageBox::Save | QMessageBox::Cancel, QMessageBox::Save);
    return answer == QMessageBox::Save;
}

void TextPage::updateNotice()
{
    const NoticeBar::Choice reloadIt {tr("Re&load"), [this] { reload(); }};
    const NoticeBar::Choice keepIt {tr("&Keep Mine"), [this] { keepMine(); }};
    const NoticeBar::Choice saveIt {tr("Save An&yway"), [this] { writeOrTell(); }};
    const NoticeBar::Choice showIt {tr("Show &Difference"), [this] { showDifference(); }};
    const NoticeBar::Choice makeIt {tr("Write A&gain"), [this] { writeOrTell(); }};
    const QString reason = readOnlyReason();
    const bool held = !reason.isEmpty();
    if (!unreadable.isEmpty()) {
        notice->show(tr("%1. The text that it had is kept here.").arg(unreadable),
                     held ? QList {reloadIt} : QList {reloadIt, saveIt});
    } else if (disk == TextFile::Disk::Missing) {
        notice->show(tr("\"%1\" is no longer on disk. Its text is kept here.").arg(title()),
                     held ? QList<NoticeBar::Choice>() : QList {makeIt});
    } else if (disk == TextFile::Disk::Changed) {
        notice->show(tr("\"%1\" was changed on disk by another program, and has changes here that "
                        "are not saved.")
                         .arg(title()),
                     held ? QList {showIt, reloadIt, keepIt}
                          : QList {showIt, reloadIt, keepIt, saveIt});
    } else {
        notice->show(held ? tr("Read-only: %1.").arg(reason) : QString());
    }
}

void TextPage::askForCopy()
{
    const QPointer<TextPage> self(this);
    const QString path = QFileDialog::getSaveFileName(this, tr("Save a Copy"), file->path());
    QString error;
    if (self && !path.isEmpty() && !saveCopy(path, &error))
        QMessageBox::warning(this, tr("Not Saved"), error);
}
