#pragma once

#include "interp/export.h"

#include <QColor>
#include <QStringList>
#include <QTextEdit>

#include <memory>

// An interactive command console: output and a prompt in one document, of which only the text
// behind the last prompt (the edition zone) can be edited. It knows no command language; a derived
// class brings one by overriding isCommandComplete, interpretCommand and suggestCommand.
//
// All text is shown as it is, never as markup, and nothing is ever trimmed. Output touches neither
// the user's selection nor, unless the view stands at its end, the place that is scrolled to.
// Commands are reported by their result and their text's colour; nothing is thrown.
class TCLSCRIPTING_EXPORT QConsole : public QTextEdit
{
    Q_OBJECT

public:
    // What a console can do beyond the rules above. A host switches on what it wants; the table of
    // docs/console.md says which keys that concerns.
    enum Feature {
        // Up brings a command of several lines back as it was typed, and moves within it; Home goes
        // to the start of its line and no further, and Shift+Return breaks one. Down behind the
        // newest entry brings back what was typed before the walk began.
        RecallAsTyped = 1,
        // Ctrl+R searches the history, Ctrl+F the text; Ctrl+L clears all but the prompt.
        SearchKeys = 2,
        // Page Up and Page Down scroll, and leave the cursor where it is.
        ScrollingPages = 4,
        // Tab at the start of a continuation line indents it.
        IndentingTab = 8,
        // Where suggestCommand has no candidate, Tab completes the word before the cursor with
        // those of suggestWord; among several the user chooses in a popup.
        CompletionPopup = 16,
        AllFeatures = 31
    };
    Q_DECLARE_FLAGS(Features, Feature)

    // Shows welcomeText, but no prompt yet.
    QConsole(QWidget *parent, const QString &welcomeText);
    ~QConsole() override;

    // None is on at first.
    void setFeatures(Features features);

    // Empties text, history and recorded script and shows welcomeText. The prompt is kept, but not
    // displayed.
    void reset(const QString &welcomeText);
    void clear();

    // Sets the prompt. A prompt that is on screen keeps its length until the next one is displayed.
    void setPrompt(const QString &newPrompt, bool display);

    // Sets the font of all text, now and later; colours stay.
    void setFont(const QFont &font);

    // Writes on white whatever the application's palette is, so that the usual colours of results
    // can be read. Usually the ground is the palette's.
    void keepLightGround();

    // Runs one command and shows its result: in a line of the console, if writeCommand, as if it
    // had been typed. Afterwards a new prompt, if showPrompt. The result's text also goes to
    // result, if that is given. Returns whether the command succeeded.
    bool execCommand(const QString &command, bool writeCommand, bool showPrompt, QString *result);

    // Writes the commands that succeeded so far, one a line. Returns 0, or -1 when the file cannot
    // be written.
    int saveScript(const QString &fileName);

    // Runs each line of a file as a command of its own. Returns 0, or -1 when the file cannot be
    // opened.
    int loadScript(const QString &fileName);

    // Turns every backslash of a text that names a drive (":\") into a slash.
    static void correctPathName(QString &text);

    // The command that is being typed; its paragraphs are joined by line feeds.
    QString getCurrentCommand() const;
    void replaceCurrentCommand(const QString &newCommand);

    // From now on what is typed while the console is busy is kept, shown at the foot of the view,
    // and typed at the next prompt. Otherwise it goes to where the cursor stands.
    virtual void keepTypedKeys();

    // Whether a command runs; the base is never busy.
    virtual bool isBusy() const { return false; }

    bool isInEditionZone() const;
    bool isInEditionZone(const int &position) const;
    bool isSelectionInEditionZone() const;

    // Whether Return runs the command, rather than go on in a new line.
    virtual bool isCommandComplete(const QString &command);

    // Runs a command. A *res other than 0 stands for failure. Returns the result's text. The base
    // only takes the command into the history and, when *res is 0, into the recorded script.
    virtual QString interpretCommand(const QString &command, int *res);

    // The candidates for what stands at the end of cmd. prefix receives the text in front of it.
    virtual QStringList suggestCommand(const QString &cmd, QString &prefix);

    // The candidates for the word at the end of text, which stands before the cursor. prefix
    // receives what is in front of that word.
    virtual QStringList suggestWord(const QString &text, QString &prefix);

public Q_SLOTS:
    // Removes the selection when all of it may be edited, and copies it otherwise.
    void cut();

    // Deletes the selection or the next character; nothing outside the edition zone.
    void del();

    // Shows the prompt at the end of the document. Undo never goes back behind it.
    void displayPrompt();

    // Types what was kept, now that a prompt waits; or forgets it.
    void typeKeptKeys();
    void forgetKeptKeys();

Q_SIGNALS:
    // A command has been run. Its line feeds are written as a backslash and the letter n.
    void commandExecuted(const QString &command);
    // The same with its line feeds as they were typed.
    void commandTaken(const QString &command);
    // The same, of those that have succeeded.
    void commandSucceeded(const QString &command);

protected:
    // Shows what a running script writes as a paragraph of its own: at the end of the document, or
    // in front of the prompt's paragraph while a prompt waits for a command.
    void writeOutput(const QString &text, const QColor &color);

    // The same, for a paragraph that continueOutput may add to wherever other output is written
    // meanwhile. The cursor is where it goes on.
    QTextCursor beginOutput(const QString &text, const QColor &color);
    void continueOutput(QTextCursor &tail, const QString &text, const QColor &color);

    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    QMimeData *createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    class Keyboard;
    struct Private;
    const std::unique_ptr<Private> d; // before what refers to its parts

protected:
    QColor cmdColor;
    QColor errColor;
    QColor outColor;
    QColor completionColor;
    int oldPosition; // the cursor's at the last press of a mouse button
    int promptLength = 0;
    QString prompt;
    QStringList &history; // oldest first, line feeds written as a backslash and the letter n
    QStringList &recordedScript; // the commands that succeeded, as typed
    int &historyIndex;
    int &promptParagraph; // number of the block that holds the current prompt

private:
    bool keepsKeys() const;
    void pressWhileBusy(QKeyEvent *event);
};

Q_DECLARE_OPERATORS_FOR_FLAGS(QConsole::Features)
