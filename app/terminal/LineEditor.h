#pragma once

#include "app/terminal/OutputCapture.h"
#include "app/terminal/TerminalHistory.h"
#include "app/terminal/TerminalSignals.h"

#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>

#include <histedit.h>

QT_BEGIN_NAMESPACE
class QEventLoop;
QT_END_NAMESPACE

// Reads lines from the terminal with editing, a history that is kept in a file, and completion.
// Qt's events, and so Tcl's, are served while it waits for keys; what they write is shown above the
// line. One per process.
class LineEditor : public QObject
{
    Q_OBJECT

public:
    // What can stand at the end of the text in place of its last characters.
    struct Completions
    {
        qsizetype replaced = 0;
        QStringList words;
    };
    using Completer = std::function<Completions(const QString &text)>;

    // The process must have a terminal; the signals must outlive the editor.
    LineEditor(const QString &historyFile, TerminalSignals &signalsOfTerminal, Completer completer);
    ~LineEditor() override;

    enum class Outcome { Line, Interrupted, End };
    Outcome read(const QString &prompt, QString *line);

    // Nothing is remembered twice in a row.
    void remember(const QString &command);

    // Goes to the next row unless the cursor stands at the begin of one.
    void startOnFreshLine();

private:
    static int readKey(EditLine *editor, wchar_t *key);
    static wchar_t *promptOf(EditLine *editor);
    static unsigned char complete(EditLine *editor, int key);

    int waitForKey(wchar_t *key);
    int decodeKey(wchar_t *key);
    unsigned char completeLine();
    void showWords(const QStringList &words);
    void showOutput();
    void eraseLine();
    void fitSize();
    int columns() const;

    TerminalHistory history;
    TerminalSignals &terminalSignals;
    const Completer completer;
    OutputCapture capture;
    QTimer partialLine;
    QByteArray held; // output that has no line feed yet
    std::FILE *out;
    EditLine *editor;
    std::wstring prompt;
    QEventLoop *waiting = nullptr;
    bool isInterrupted = false;
    bool isHistoryKept = true;
    bool isDumb;
};
