#include "tests/process/Terminal.h"

#include "tests/patience.h"

#include <QDebug>
#include <QElapsedTimer>

#include <cerrno>
#include <csignal>
#include <vector>

#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int patience = patient(10'000);
constexpr int rows = 24;

std::vector<char *> pointers(QList<QByteArray> &texts)
{
    std::vector<char *> all;
    for (QByteArray &text : texts)
        all.push_back(text.data());
    all.push_back(nullptr);
    return all;
}

} // namespace

Terminal::Terminal(const Program &program, const QStringList &words, int columns,
                   const QString &shell)
    : screen(rows, columns)
{
    QList<QByteArray> arguments {PROGRAM, "--session", program.session.toUtf8()};
    if (!shell.isEmpty())
        arguments = QList<QByteArray> {"/bin/sh", "-c", shell.toUtf8()} + arguments;
    for (const QString &word : words)
        arguments.append(word.toUtf8());
    QProcessEnvironment environment = program.environment;
    environment.insert(u"TERM"_s, u"xterm"_s);
    QList<QByteArray> variables;
    for (const QString &variable : environment.toStringList())
        variables.append(variable.toUtf8());
    const std::vector<char *> argv = pointers(arguments);
    const std::vector<char *> envp = pointers(variables);
    const QByteArray folder = program.currentFolder.toUtf8();
    const winsize size {rows, static_cast<unsigned short>(columns), 0, 0};
    child = forkpty(&master, nullptr, nullptr, &size);
    if (child == 0) {
        if (chdir(folder.constData()) == 0)
            execve(argv.front(), argv.data(), envp.data());
        _exit(127);
    }
}

Terminal::~Terminal()
{
    if (child > 0) {
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }
    close(master);
}

void Terminal::type(const QByteArray &keys) const
{
    if (write(master, keys.constData(), size_t(keys.size())) != keys.size())
        qWarning() << "the terminal does not take the keys" << keys;
}

// Where rows end is the screen's business.
bool Terminal::enter(const QByteArray &keys)
{
    const QString wanted = QString(screen.text() + u' ' + QString::fromUtf8(keys)).remove(u'\n');
    type(keys);
    return waitFor([&] { return QString(screen.text()).remove(u'\n') == wanted; });
}

bool Terminal::command(const QByteArray &text)
{
    const bool isSeen = enter(text);
    type("\r");
    return isSeen;
}

void Terminal::resize(int columns)
{
    screen.resize(columns);
    const winsize size {rows, static_cast<unsigned short>(columns), 0, 0};
    ioctl(master, TIOCSWINSZ, &size);
}

bool Terminal::shows(const QString &text)
{
    return waitFor([&] { return screen.text() == text; });
}

bool Terminal::endsWith(const QString &text)
{
    return waitFor([&] { return screen.text().endsWith(text); });
}

bool Terminal::contains(const QString &text)
{
    return waitFor([&] { return screen.text().contains(text); });
}

bool Terminal::containsBeforeItEnds(const QString &text)
{
    return waitFor([&] { return isHungUp || screen.text().contains(text); })
        && screen.text().contains(text);
}

int Terminal::ended()
{
    int status = 0;
    const bool isOver =
        waitFor([&] { return child > 0 && waitpid(child, &status, WNOHANG) == child; });
    if (!isOver)
        return -1;
    child = -1;
    while (readSome()) { }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool Terminal::readSome()
{
    pollfd waited {master, POLLIN, 0};
    constexpr int step = 20;
    char buffer[4096];
    const ssize_t count =
        poll(&waited, 1, step) > 0 ? ::read(master, buffer, sizeof buffer) : ssize_t(0);
    // The last one that had the terminal open is gone.
    isHungUp = count < 0 && errno == EIO;
    if (count > 0)
        screen.feed(QByteArray(buffer, count));
    return count > 0;
}

template <typename Condition>
bool Terminal::waitFor(const Condition &condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > patience) {
            qWarning().noquote() << "the terminal shows:\n" << screen.text();
            return false;
        }
        readSome();
    }
    return true;
}
