#include "app/terminal/TerminalHistory.h"

#include <Qtilities/atomicfile.h>
#include <Qtilities/Descriptor.h>
#include <Qtilities/regularfile.h>

#include <cerrno>
#include <limits>
#include <sys/mman.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Descriptor;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace {

constexpr int size = 1000;

// The library opens its files by name, waits for pipes, and cuts off what it writes over. So it
// reads and writes in memory.
Descriptor inMemory() { return Descriptor(::memfd_create("history", MFD_CLOEXEC)); }

QByteArray nameOf(const Descriptor &memory)
{
    return "/proc/self/fd/" + QByteArray::number(memory.get());
}

Status cannot(const char *what, const QString &fileName, const QString &reason)
{
    return Status::io(u"Cannot %1 \"%2\": %3"_s.arg(QString::fromLatin1(what), fileName, reason));
}

} // namespace

TerminalHistory::TerminalHistory(const QString &file) : fileName(file), history(history_winit())
{
    HistEventW event;
    history_w(history, &event, H_SETSIZE, size);
    history_w(history, &event, H_SETUNIQUE, 1);
    loading = load();
}

TerminalHistory::~TerminalHistory() { history_wend(history); }

Status TerminalHistory::remember(const QString &command)
{
    HistEventW event;
    history_w(history, &event, H_ENTER, command.toStdWString().c_str());
    return loading.isOk() ? save() : loading;
}

Status TerminalHistory::load()
{
    const Result<QByteArray> content = Qtilities::Core::readRegularFile(fileName);
    if (!content.isOk() && content.status().kind() == Status::Kind::NotFound)
        return {};
    if (!content.isOk())
        return cannot("read", fileName, content.status().text());
    const Descriptor memory = inMemory();
    if (!memory || !memory.write(content.value()))
        return cannot("read", fileName, qt_error_string(errno));
    HistEventW event;
    const int lines = history_w(history, &event, H_LOAD, nameOf(memory).constData());
    return lines >= 0 || content.value().isEmpty()
        ? Status()
        : cannot("read", fileName, u"it holds something else"_s);
}

Status TerminalHistory::save() const
{
    const Descriptor memory = inMemory();
    HistEventW event;
    if (!memory || history_w(history, &event, H_SAVE, nameOf(memory).constData()) < 0)
        return cannot("write", fileName, qt_error_string(errno));
    const Result<QByteArray> content =
        Qtilities::Core::readAll(memory, std::numeric_limits<qint64>::max());
    if (!content.isOk())
        return cannot("write", fileName, content.status().text());
    // Nobody else may read the commands.
    if (const Status made = Qtilities::Core::makePrivateFile(fileName); !made.isOk())
        return cannot("write", fileName, made.text());
    return Qtilities::Core::writeFileAtomically(fileName, content.value());
}
