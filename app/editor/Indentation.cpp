#include "app/editor/Indentation.h"

#include <QHash>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int mostLines = 2000;
constexpr int widest = 8;

qsizetype leading(QStringView line, QChar character)
{
    const auto end =
        std::find_if(line.begin(), line.end(), [character](QChar one) { return one != character; });
    return end - line.begin();
}

} // namespace

// The step is what lines are most often deeper than the one above.
Indentation Indentation::of(const QTextDocument &text, const Indentation &usual)
{
    int withTabs = 0;
    int withSpaces = 0;
    QHash<qsizetype, int> steps;
    qsizetype above = 0;
    for (QTextBlock block = text.firstBlock(); block.isValid(); block = block.next()) {
        if (block.blockNumber() >= mostLines)
            break;
        const QString line = block.text();
        if (line.trimmed().isEmpty())
            continue;
        const qsizetype spaces = leading(line, u' ');
        withTabs += line.startsWith(u'\t');
        withSpaces += spaces > 1;
        if (spaces > above && spaces - above > 1 && spaces - above <= widest)
            ++steps[spaces - above];
        above = spaces;
    }
    if (withTabs == 0 && withSpaces == 0)
        return usual;
    if (withTabs >= withSpaces)
        return {false, usual.width};
    int width = usual.width;
    int most = 0;
    for (int candidate = 2; candidate <= widest; ++candidate) {
        if (steps.value(candidate) > most) {
            most = steps.value(candidate);
            width = candidate;
        }
    }
    return {true, width};
}
