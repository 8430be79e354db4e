#include "app/editor/FileSync.h"

#include "app/editor/DifferenceDialog.h"
#include "app/editor/documenttext.h"
#include "app/editor/TextEdit.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

FileSync::FileSync(std::unique_ptr<TextFile> theFile, TextEdit *theEdit, QWidget *thePage)
    : QObject(thePage),
      file(theFile.release()),
      edit(theEdit),
      page(thePage)
{
    file->setParent(this);
    connect(file, &TextFile::touched, this, &FileSync::check);
}

// Making the lines remember their ends is no change of the user's, and cannot be undone.
void FileSync::fill(const lineends::Lines &lines)
{
    QTextDocument *document = edit->document();
    document->setUndoRedoEnabled(false);
    document->setPlainText(lines.text);
    if (!lines.each.isEmpty())
        lineends::mark(document, lines);
    document->setUndoRedoEnabled(true);
    document->setModified(false);
    edit->setTextCursor(QTextCursor(document));
    usualEnd = lines.usual;
    Q_EMIT contentsRead();
}

bool FileSync::isModified() const
{
    return edit->document()->isModified() || disk == TextFile::Disk::Missing
        || !whyUnreadable.isEmpty();
}

void FileSync::check(TextFile::Trust trust)
{
    const TextFile::Disk now = file->look(trust);
    if (now == TextFile::Disk::Changed && !edit->document()->isModified())
        reload();
    else
        setDisk(now);
}

Status FileSync::save()
{
    const TextFile::Disk now = file->look(TextFile::Trust::Nothing);
    if (now == TextFile::Disk::Changed) {
        setDisk(now, whyUnreadable);
        return {Status::Kind::Conflict, QString()};
    }
    // The page may be gone when the question is answered.
    const QPointer<FileSync> self(this);
    const bool isWanted = now != TextFile::Disk::Missing || mayMakeAgain();
    if (!self)
        return Status::cancelled(QString());
    if (isWanted)
        return write();
    setDisk(now);
    return Status::cancelled(QString());
}

void FileSync::askForCopy()
{
    const QPointer<FileSync> self(this);
    const QString path = QFileDialog::getSaveFileName(page, tr("Save a Copy"), file->path());
    if (!self || path.isEmpty())
        return;
    if (const Status saved = saveCopy(path); !saved.isOk())
        QMessageBox::warning(page, tr("Not Saved"), saved.text());
}

Status FileSync::saveCopy(const QString &path) const { return file->writeCopy(path, text()); }

void FileSync::reload()
{
    const Result<lineends::Lines> read = file->read();
    if (!read.isOk()) {
        setDisk(file->look(TextFile::Trust::Nothing), read.status().text());
        return;
    }
    const lineends::Lines &lines = read.value();
    const bool isOther = documenttext::lines(*edit->document()) != lines.text;
    documenttext::replace(edit, lines.text);
    lineends::mark(edit->document(), lines, isOther);
    usualEnd = lines.usual;
    edit->document()->setModified(false);
    Q_EMIT contentsRead();
    setDisk(TextFile::Disk::Same);
}

void FileSync::takeUnsaved(const QString &unsaved, const QByteArray &base)
{
    const lineends::Lines lines = lineends::split(unsaved);
    documenttext::replace(edit, lines.text);
    lineends::mark(edit->document(), lines);
    usualEnd = lines.usual;
    edit->document()->setModified(true);
    file->know(base);
    setDisk(file->look(TextFile::Trust::Nothing));
}

void FileSync::setCoding(TextCoding coding)
{
    if (coding == file->coding())
        return;
    file->setCoding(coding);
    edit->document()->setModified(true);
    Q_EMIT contentsRead();
}

void FileSync::keepMine()
{
    file->accept();
    setDisk(file->look(TextFile::Trust::Nothing));
}

void FileSync::overwrite()
{
    if (const Status written = write(); !written.isOk())
        QMessageBox::warning(page, tr("Not Saved"), written.text());
}

void FileSync::showDifference()
{
    const Result<QString> onDisk = file->textOnDisk();
    if (!onDisk.isOk()) {
        QMessageBox::warning(page, tr("No Difference Shown"), onDisk.status().text());
        return;
    }
    auto *dialog = new DifferenceDialog(QFileInfo(file->path()).fileName(), onDisk.value(),
                                        documenttext::lines(*edit->document()), page);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &DifferenceDialog::lineWanted, edit, [edit = edit](int line) {
        edit->goToLine(line);
        edit->activateWindow();
        edit->setFocus();
    });
    dialog->show();
}

void FileSync::setDisk(TextFile::Disk state, const QString &why)
{
    const bool was = isModified();
    disk = state;
    whyUnreadable = why;
    Q_EMIT diskChanged();
    if (isModified() != was)
        Q_EMIT modifiedChanged();
}

Status FileSync::write()
{
    const Status written = file->write(text());
    if (written.isOk()) {
        edit->document()->setModified(false);
        setDisk(TextFile::Disk::Same);
    }
    return written;
}

bool FileSync::mayMakeAgain()
{
    const auto answer =
        QMessageBox::question(page, tr("File Is Gone"),
                              tr("\"%1\" is no longer on disk. Write it again?").arg(file->path()),
                              QMessageBox::Save | QMessageBox::Cancel, QMessageBox::Save);
    return answer == QMessageBox::Save;
}

QString FileSync::text() const { return lineends::join(*edit->document(), usualEnd); }
