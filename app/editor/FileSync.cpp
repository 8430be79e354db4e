#include "app/editor/FileSync.h"

#include "app/editor/DifferenceDialog.h"
#include "app/editor/documenttext.h"
#include "app/editor/TextEdit.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>

using namespace Qt::Literals::StringLiterals;

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

bool FileSync::save(QString *error)
{
    const TextFile::Disk now = file->look(TextFile::Trust::Nothing);
    if (now == TextFile::Disk::Changed) {
        setDisk(now, whyUnreadable);
        return false;
    }
    // The page may be gone when the question is answered.
    const QPointer<FileSync> self(this);
    if (now == TextFile::Disk::Missing && !mayMakeAgain())
        return false;
    return self && write(error);
}

void FileSync::askForCopy()
{
    const QPointer<FileSync> self(this);
    const QString path = QFileDialog::getSaveFileName(page, tr("Save a Copy"), file->path());
    QString error;
    if (self && !path.isEmpty() && !saveCopy(path, &error))
        QMessageBox::warning(page, tr("Not Saved"), error);
}

bool FileSync::saveCopy(const QString &path, QString *error) const
{
    return file->writeCopy(path, text(), error);
}

void FileSync::reload()
{
    QString error;
    const std::optional<lineends::Lines> lines = file->read(&error);
    if (!lines) {
        setDisk(file->look(TextFile::Trust::Nothing), error);
        return;
    }
    documenttext::replace(edit, lines->text);
    lineends::mark(edit->document(), *lines);
    usualEnd = lines->usual;
    edit->document()->setModified(false);
    Q_EMIT contentsRead();
    setDisk(TextFile::Disk::Same);
}

void FileSync::keepMine()
{
    file->accept();
    setDisk(file->look(TextFile::Trust::Nothing));
}

void FileSync::overwrite()
{
    QString error;
    if (!write(&error))
        QMessageBox::warning(page, tr("Not Saved"), error);
}

void FileSync::showDifference()
{
    QString error;
    const std::optional<QString> onDisk = file->textOnDisk(&error);
    if (!onDisk) {
        QMessageBox::warning(page, tr("No Difference Shown"), error);
        return;
    }
    auto *dialog = new DifferenceDialog(QFileInfo(file->path()).fileName(), *onDisk,
                                        documenttext::lines(*edit->document()), page);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
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

bool FileSync::write(QString *error)
{
    if (!file->write(text(), error))
        return false;
    edit->document()->setModified(false);
    setDisk(TextFile::Disk::Same);
    return true;
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
