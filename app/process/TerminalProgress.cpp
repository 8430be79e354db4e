#include "app/process/TerminalProgress.h"

#include <MorvalenCore/BuildMonitor.h>

#include <cstdio>

#include <sys/ioctl.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildMonitor;

namespace {

int terminalWidth()
{
    winsize size {};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

} // namespace

TerminalProgress::TerminalProgress(QObject *parent) : QObject(parent)
{
    if (isatty(STDERR_FILENO) != 1 || qgetenv("TERM") == "dumb")
        return;
    const BuildMonitor *const monitor = BuildMonitor::instance();
    connect(monitor, &BuildMonitor::progressed, this,
            [this](auto *, int done, int total, const QString &step) {
                show(u"[%1/%2] "_s.arg(done).arg(total) + step);
            });
    connect(monitor, &BuildMonitor::ended, this, [this] { show(QString()); });
}

TerminalProgress::~TerminalProgress() { show(QString()); }

void TerminalProgress::show(const QString &text)
{
    if (text.isEmpty() && !isShown)
        return;
    isShown = !text.isEmpty();
    QString line = text.left(terminalWidth() - 1);
    for (QChar &c : line) {
        if (!c.isPrint() && !c.isSurrogate())
            c = u' ';
    }
    // The cursor goes back to the margin, so that other texts begin there.
    const QByteArray bytes = line.toUtf8() + "\033[K\r";
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stderr);
    std::fflush(stderr);
}
