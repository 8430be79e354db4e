#pragma once

#include "app/editor/EditorPage.h"
#include "app/editor/TextFile.h"

#include <QMap>

class FindBar;
class GoToLineBar;
class NoticeBar;
class PositionBar;
class TextEdit;

// A page that shows a text file and lets users change it. Nothing that a user typed is lost by
// what happens on disk: a page without changes follows its file, one with changes asks. A file
// that is gone keeps its text here, which then counts as a change.
class TextPage : public EditorPage
{
    Q_OBJECT

public:
    // Larger texts are not coloured, since that takes too long; the page says so.
    static constexpr int colouredCharacters = 8'000'000;

    // Who forbids changes; the first that does is the one that the page names.
    enum Hold { Host, Design, Permission, Caller };

    // A page with the file of a canonical path; null, with a sentence in *error, when it cannot be
    // shown as text.
    static TextPage *open(const QString &path, QString *error, QWidget *parent = nullptr);

    QString key() const override { return file->path(); }
    QString title() const override;
    QString toolTipText() const override;
    QString filePath() const override { return file->path(); }
    bool isModified() const override;
    bool save(QString *error) override;
    bool can(Command command) const override;
    void run(Command command) override;

    // Forbids changes for a reason, a clause such as "it belongs to a design"; an empty one
    // allows them again.
    void setHold(Hold hold, const QString &reason);
    // Why changes are forbidden; empty when they are not.
    QString readOnlyReason() const;

    // Writes the text to another file; the page stays with its own.
    bool saveCopy(const QString &path, QString *error) const;

    TextEdit *textEdit() const { return edit; }

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    struct CommandRow;
    static const CommandRow *row(Command command);

    explicit TextPage(TextFile *file, QWidget *parent);
    void layOut();
    void colour();
    void openFind(bool replacing);
    void openGoToLine();
    void followText();
    void fill(const lineends::Lines &lines);

    // What is on disk, and what is said about it.
    void checkDisk(TextFile::Trust trust);
    void setDisk(TextFile::Disk state, const QString &why = {});
    void reload();
    void keepMine();
    void showDifference();
    bool write(QString *error);
    void writeOrTell();
    bool mayMakeAgain();
    void updateNotice();
    void askForCopy();
    QString text() const;

    TextFile *file;
    NoticeBar *notice;
    TextEdit *edit;
    FindBar *findBar;
    GoToLineBar *goToLineBar;
    PositionBar *position;
    int usualEnd = 0;
    TextFile::Disk disk = TextFile::Disk::Same;
    // Why what is on disk now cannot be shown.
    QString unreadable;
    QMap<Hold, QString> holds;
};
