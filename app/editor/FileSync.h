#pragma once

#include "app/editor/TextFile.h"

#include <QObject>

#include <memory>

class QWidget;
class TextEdit;

// Keeps the text of a page and its file together. Nothing that a user typed is lost by what happens
// on disk: a text without changes follows its file, one with changes waits for a decision. When the
// file is gone the text stays, and counts as a change.
class FileSync : public QObject
{
    Q_OBJECT

public:
    using Status = Qtilities::Core::Status;

    // Questions are asked above the page, which the object belongs to.
    FileSync(std::unique_ptr<TextFile> file, TextEdit *edit, QWidget *page);

    const TextFile &textFile() const { return *file; }

    // The first text, which is what was read of the file.
    void fill(const lineends::Lines &lines);

    // Whether there is anything that the file has not.
    bool isModified() const;
    // What is on disk, as far as it was looked at.
    TextFile::Disk onDisk() const { return disk; }
    // Why what is on disk now cannot be shown; empty when it can.
    QString unreadable() const { return whyUnreadable; }

    // Looks at the file, and follows it when there are no changes.
    void check(TextFile::Trust trust);

    // Writes the text when the file is still what it was. The status has no sentence when the user
    // has to decide first or has decided.
    Status save();
    // Writes the text to another file, as the user's file name dialog says or as given.
    void askForCopy();
    Status saveCopy(const QString &path) const;

    // Writes the text in another coding from now on, which is a change that is not saved.
    void setCoding(TextCoding coding);

    // The text as a save would write it, and putting another one in its place as a change that is
    // not saved, made of a file of which that was known.
    QString unsavedText() const { return text(); }
    void takeUnsaved(const QString &unsaved, const QByteArray &base);

    // What the user can do about a file that was changed, is gone or cannot be read.
    void reload();
    void keepMine();
    void overwrite();
    void showDifference();

Q_SIGNALS:
    // The file was read, or is written in another way.
    void contentsRead();
    // What is on disk, or what is known of it, may be something else.
    void diskChanged();
    // isModified() says something else because of the disk.
    void modifiedChanged();

private:
    void setDisk(TextFile::Disk state, const QString &why = {});
    Status write();
    bool mayMakeAgain();
    QString text() const;

    TextFile *file;
    TextEdit *edit;
    QWidget *page;
    int usualEnd = 0;
    TextFile::Disk disk = TextFile::Disk::Same;
    QString whyUnreadable;
};
