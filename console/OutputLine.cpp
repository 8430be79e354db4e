#include "console/OutputLine.h"

#include "interp/tcltext.h"

#include <algorithm>

namespace {

// How many bytes at the end begin a character of UTF-8 that goes on behind them.
qsizetype unfinished(const QByteArray &bytes)
{
    constexpr qsizetype longest = 4;
    for (qsizetype back = 1; back <= std::min(longest - 1, bytes.size()); ++back) {
        const uchar byte = uchar(bytes.at(bytes.size() - back));
        if ((byte & 0xC0) == 0x80)
            continue;
        const qsizetype length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
        return back < length ? back : 0;
    }
    return 0;
}

} // namespace

void OutputLine::write(const QByteArray &bytes)
{
    QByteArray all = split + bytes;
    const qsizetype left = unfinished(all);
    split = all.last(left);
    all.chop(left);
    const QString part = tcltext::fromTcl(all.constData(), all.size());
    const bool ends = part.endsWith(u'\n');
    const QString shown = ends ? part.chopped(1) : part;
    if (part.isEmpty())
        return;
    if (!isOpen)
        to.begin(shown);
    else if (!shown.isEmpty())
        to.goOn(shown);
    isOpen = true;
    text += shown;
    if (ends)
        finish();
}

void OutputLine::finish()
{
    if (!isOpen)
        return;
    isOpen = false;
    const QString line = text;
    text.clear();
    to.tell(line);
}
