#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace MorvalenCore {

// Cuts a stream of bytes into lines. A line that was overwritten with carriage returns counts as
// what was written last; one longer than the limit comes in pieces. Keeps at most one line.
class LineReader
{
public:
    using Receiver = std::function<void(const QByteArray &)>;

    // In bytes.
    static constexpr qsizetype longestLine = 16'384;

    explicit LineReader(Receiver takes) : receiver(std::move(takes)) { }

    void take(const QByteArray &bytes);
    // Hands over what stands behind the last line feed.
    void finish();

private:
    void endLine();

    Receiver receiver;
    QByteArray line;
};

// A line of output as a text to be shown: bytes that are not UTF-8 and control characters as \xNN,
// tabs as they are, colours and other terminal sequences left out.
QString shownText(const QByteArray &line);

} // namespace MorvalenCore
