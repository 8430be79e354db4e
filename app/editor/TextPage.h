#pragma once

#include "app/editor/EditorPage.h"
#include "app/editor/ReadOnlyReasons.h"
#include "app/editor/TextFile.h"

#include <memory>

class FileSync;
class NoticeBar;
class QSplitter;
class TextEdit;
class TextView;

// A page that shows a text file and lets users change it: the text, above it what is to be said
// about its file, below it the strips for finding and the position of the cursor.
class TextPage : public EditorPage
{
    Q_OBJECT

public:
    // Larger texts are not coloured, since that takes too long; the page says so.
    static constexpr int colouredCharacters = 8'000'000;

    // A page with the file of a canonical path; fails when that cannot be shown as text.
    static Qtilities::Core::Result<TextPage *> open(const QString &path, QWidget *parent = nullptr);

    // A page of a file that is not there, without a text.
    static TextPage *withoutFile(const QString &path, QWidget *parent = nullptr);
    ~TextPage() override;

    QString key() const override { return filePath(); }
    QString title() const override;
    QString toolTipText() const override;
    QString filePath() const override;
    bool isModified() const override;
    Qtilities::Core::Status save() override;
    bool can(Command command) const override;
    void run(Command command) override;

    // Forbids changes, or allows them again; see ReadOnlyReasons.
    void setReadOnly(ReadOnlyReasons::Source source, const QString &reason);
    // Why changes are forbidden; empty when they are not.
    QString readOnlyReason() const { return readOnlyReasons.first(); }

    // Writes the text to another file; the page stays with its own.
    Qtilities::Core::Status saveCopy(const QString &path) const;

    TextEdit *textEdit() const { return edit; }

    // Where the user is in the text, to be found again; beyond its end, the end is taken.
    struct Place
    {
        int cursor = 0;
        int top = 0;
    };
    Place place() const;
    void goTo(const Place &place);

    // Writes the text in another coding from now on.
    void setCoding(TextCoding coding);

    // The text as a save would write it, with what is known of its file; and taking
    // such a text as a change that is not saved.
    struct Unsaved
    {
        QString text;
        QByteArray base;
    };
    Unsaved unsaved() const;
    void takeUnsaved(const Unsaved &text, int cursor);

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    struct CommandRow;
    static const CommandRow *row(Command command);

    TextPage(std::unique_ptr<TextFile> file, QWidget *parent);
    void layOut();
    void followText();
    void followFile();
    void colour();
    void followSight(TextView *view);
    TextView *frontView() const;
    TextEdit *front() const;
    QList<TextView *> views() const;
    void setKind(const QString &kind);
    void splitOrJoin();
    void chooseCoding();
    void saveInUtf8();
    void showForm();
    void updateNotice();

    NoticeBar *notice;
    QSplitter *splitter;
    TextView *first;
    TextView *second = nullptr; // while the page is split
    // The sight that had the keyboard last.
    bool isSecondInFront = false;
    TextEdit *edit;
    FileSync *sync;
    ReadOnlyReasons readOnlyReasons;
    // Why the text could not be written in its coding.
    QString uncodable;
};
