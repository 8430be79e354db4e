#include "app/terminal/LineEditor.h"

#include "app/process/standardstreams.h"

#include <Qtilities/Logger.h>
#include <Qtilities/statuslog.h>

#include <QEventLoop>
#include <QSocketNotifier>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cwchar>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;
using Qtilities::Logging::logStatus;

namespace {

constexpr int patienceWithPartialLines = 100; // milliseconds

int widthOf(std::wstring_view text)
{
    int width = 0;
    for (const wchar_t c : text)
        width += c < L' ' || c == 0x7f ? 2 : std::max(wcwidth(c), 0);
    return width;
}

QString commonStart(const QStringList &words)
{
    QString start = words.value(0);
    for (const QString &word : words) {
        while (!word.startsWith(start))
            start.chop(1);
    }
    return start;
}

} // namespace

LineEditor::LineEditor(const QString &historyFile, TerminalSignals &signalsOfTerminal,
                       Completer theCompleter)
    : history(historyFile),
      terminalSignals(signalsOfTerminal),
      completer(std::move(theCompleter)),
      out(fdopen(fcntl(standardstreams::shownByTerminal(), F_DUPFD_CLOEXEC, 3), "w")),
      editor(el_init("morvalen", stdin, out, out)),
      isDumb(qgetenv("TERM").isEmpty() || qgetenv("TERM") == "dumb")
{
    logStatus(history.loaded(), Logger::Warning);
    isHistoryKept = history.loaded().isOk();
    el_wset(editor, EL_CLIENTDATA, this);
    el_wset(editor, EL_EDITOR, L"emacs");
    el_wset(editor, EL_SIGNAL, 0);
    el_wset(editor, EL_PROMPT, promptOf);
    el_wset(editor, EL_HIST, history_w, history.handle());
    el_wset(editor, EL_GETCFN, readKey);
    el_wset(editor, EL_ADDFN, L"complete", L"Completes a word", complete);
    el_wset(editor, EL_BIND, L"^I", L"complete", nullptr);
    el_wset(editor, EL_BIND, L"^R", L"em-inc-search-prev", nullptr);
    partialLine.setSingleShot(true);
    partialLine.setInterval(patienceWithPartialLines);
    const auto endWait = [this] {
        if (waiting)
            waiting->quit();
    };
    connect(&partialLine, &QTimer::timeout, this, &LineEditor::showOutput);
    connect(&capture, &OutputCapture::arrived, this, &LineEditor::showOutput);
    connect(&terminalSignals, &TerminalSignals::interrupted, this, [this, endWait] {
        isInterrupted = true;
        endWait();
    });
    connect(&terminalSignals, &TerminalSignals::resized, this, &LineEditor::fitSize);
    connect(&terminalSignals, &TerminalSignals::leaving, this,
            [this] { el_wset(editor, EL_PREP_TERM, 0); });
    connect(&terminalSignals, &TerminalSignals::returned, this, [this] {
        if (!waiting)
            return;
        el_wset(editor, EL_PREP_TERM, 1);
        el_resize(editor);
        el_wset(editor, EL_REFRESH);
    });
}

LineEditor::~LineEditor()
{
    el_end(editor);
    std::fclose(out);
}

LineEditor::Outcome LineEditor::read(const QString &promptText, QString *line)
{
    prompt = promptText.toStdWString();
    isInterrupted = false;
    // Before anything is shown: what is typed at a prompt must not be echoed by the terminal, too.
    el_wset(editor, EL_PREP_TERM, 1);
    startOnFreshLine();
    terminalSignals.setEditing(true);
    capture.setOn(true);
    int count = 0;
    const wchar_t *text = el_wgets(editor, &count);
    capture.setOn(false);
    terminalSignals.setEditing(false);
    if (isInterrupted || !text || count <= 0)
        std::fputs(isInterrupted ? "^C\n" : "\n", out);
    held += capture.take();
    std::fwrite(held.constData(), 1, size_t(held.size()), out);
    std::fflush(out);
    held.clear();
    if (isInterrupted)
        return Outcome::Interrupted;
    if (!text || count <= 0)
        return Outcome::End;
    *line = QString::fromWCharArray(text, count);
    if (line->endsWith(u'\n'))
        line->chop(1);
    return Outcome::Line;
}

void LineEditor::remember(const QString &command)
{
    const Status kept = history.remember(command);
    // Once, until it is kept again.
    if (isHistoryKept)
        logStatus(kept, Logger::Warning);
    isHistoryKept = kept.isOk();
}

int LineEditor::readKey(EditLine *editor, wchar_t *key)
{
    void *self = nullptr;
    el_wget(editor, EL_CLIENTDATA, &self);
    return static_cast<LineEditor *>(self)->waitForKey(key);
}

wchar_t *LineEditor::promptOf(EditLine *editor)
{
    void *self = nullptr;
    el_wget(editor, EL_CLIENTDATA, &self);
    return static_cast<LineEditor *>(self)->prompt.data();
}

unsigned char LineEditor::complete(EditLine *editor, int)
{
    void *self = nullptr;
    el_wget(editor, EL_CLIENTDATA, &self);
    return static_cast<LineEditor *>(self)->completeLine();
}

// Serves events until a key has come. As read() does: the number of keys, 0 at the end of input, -1
// to give the line up.
int LineEditor::waitForKey(wchar_t *key)
{
    QEventLoop loop;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    connect(&input, &QSocketNotifier::activated, &loop, &QEventLoop::quit);
    waiting = &loop;
    if (!isInterrupted)
        loop.exec();
    waiting = nullptr;
    input.setEnabled(false);
    return isInterrupted ? -1 : decodeKey(key);
}

// The bytes of one character come together.
int LineEditor::decodeKey(wchar_t *key)
{
    std::mbstate_t state {};
    for (;;) {
        char byte = 0;
        const ssize_t count = ::read(STDIN_FILENO, &byte, 1);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return int(count);
        const size_t length = std::mbrtowc(key, &byte, 1, &state);
        if (length == size_t(-1)) {
            *key = L'?';
            return 1;
        }
        if (length != size_t(-2))
            return 1;
    }
}

unsigned char LineEditor::completeLine()
{
    const LineInfoW *line = el_wline(editor);
    const QString text = QString::fromWCharArray(line->buffer, line->cursor - line->buffer);
    const Completions found = completer(text);
    const QString typed = text.last(found.replaced);
    if (found.words.isEmpty())
        return CC_REFRESH_BEEP;
    QString start = commonStart(found.words);
    if (found.words.size() == 1 && !start.endsWith(u'/'))
        start += u' ';
    if (start.size() > typed.size()) {
        el_deletestr(editor, int(typed.toStdWString().size()));
        el_winsertstr(editor, start.toStdWString().c_str());
        return CC_REFRESH;
    }
    showWords(found.words);
    return CC_REDISPLAY;
}

// In columns, below the line, which is drawn again below them.
void LineEditor::showWords(const QStringList &words)
{
    qsizetype widest = 0;
    for (const QString &word : words)
        widest = std::max(widest, word.size() + 2);
    const qsizetype perRow = std::max<qsizetype>(1, columns() / widest);
    QString text = u"\n"_s;
    for (qsizetype i = 0; i < words.size(); ++i) {
        const bool isLast = i % perRow == perRow - 1 || i == words.size() - 1;
        text += isLast ? words[i] + u'\n' : words[i].leftJustified(widest);
    }
    std::fputs(text.toUtf8().constData(), out);
    std::fflush(out);
}

// A line that is not complete yet may become so soon.
void LineEditor::showOutput()
{
    const bool isOverdue = sender() == &partialLine;
    held += capture.take();
    const qsizetype end = isOverdue ? held.size() : held.lastIndexOf('\n') + 1;
    if (end == 0) {
        if (!held.isEmpty() && !partialLine.isActive())
            partialLine.start();
        return;
    }
    partialLine.stop();
    eraseLine();
    std::fwrite(held.constData(), 1, size_t(end), out);
    if (held[end - 1] != '\n')
        std::fputc('\n', out);
    std::fflush(out);
    held.remove(0, end);
    if (!held.isEmpty())
        partialLine.start();
    if (waiting)
        el_wset(editor, EL_REFRESH);
}

// Goes to where the prompt begins, which may be some rows above, and clears from there.
void LineEditor::eraseLine()
{
    if (isDumb) {
        std::fputc('\n', out);
        return;
    }
    const LineInfoW *line = el_wline(editor);
    const int width = widthOf(prompt)
        + widthOf(std::wstring_view(line->buffer, size_t(line->cursor - line->buffer)));
    if (const int rows = width / columns(); rows > 0)
        std::fprintf(out, "\x1b[%dA", rows);
    std::fputs("\r\x1b[J", out);
}

void LineEditor::fitSize()
{
    if (!waiting)
        return;
    eraseLine();
    std::fflush(out);
    el_resize(editor);
    el_wset(editor, EL_REFRESH);
}

// Where output has left the cursor within a row, the blanks go on in the next one, else they stay
// in this one; there is no other way to know.
void LineEditor::startOnFreshLine()
{
    if (isDumb)
        return;
    std::fprintf(out, "%*s\r\x1b[J", columns() - 1, "");
    std::fflush(out);
}

int LineEditor::columns() const
{
    winsize size {};
    const bool isKnown = ioctl(fileno(out), TIOCGWINSZ, &size) == 0 && size.ws_col > 1;
    return isKnown ? size.ws_col : 80;
}
