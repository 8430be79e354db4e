#include "console/CommandHistory.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

// QString::replace moves the rest of a long text again and again, this does not.
QString entryOf(const QString &command) { return command.split(u'\n').join(u"\\n"_s); }

} // namespace

QString CommandHistory::add(const QString &command)
{
    if (command.contains(u'\n'))
        severalLines.insert(int(entries.size()), command);
    entries.append(entryOf(command));
    index = int(entries.size());
    beforeWalk.clear();
    return entries.constLast();
}

void CommandHistory::clear()
{
    entries.clear();
    severalLines.clear();
    beforeWalk.clear();
    index = 0;
}

// The entries are open to derived consoles, which may have changed them.
QString CommandHistory::command(int entry) const
{
    const QString shown = entries.at(entry);
    const QString typed = recallsAsTyped ? severalLines.value(entry) : QString();
    return !typed.isEmpty() && entryOf(typed) == shown ? typed : shown;
}

QString CommandHistory::older(const QString &typed)
{
    if (index >= entries.size())
        beforeWalk = typed;
    while (index > 0) {
        if (command(--index) != typed)
            break;
    }
    return command(index);
}

QString CommandHistory::newer(const QString &typed)
{
    const int newest = int(entries.size()) - 1;
    if (recallsAsTyped && index > newest)
        return typed;
    do {
        ++index;
    } while (index <= newest && command(index) == typed);
    if (recallsAsTyped && index > newest)
        return beforeWalk;
    index = std::min(index, newest);
    return command(index);
}

int CommandHistory::findOlder(const QString &text, int before) const
{
    for (int entry = std::min(before, int(entries.size())) - 1; entry >= 0; --entry) {
        if (command(entry).contains(text, Qt::CaseInsensitive))
            return entry;
    }
    return -1;
}
