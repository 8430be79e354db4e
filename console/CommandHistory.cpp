#include "console/CommandHistory.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

QString CommandHistory::add(const QString &command)
{
    QString entry = command;
    entry.replace(u'\n', u"\\n"_s);
    entries.append(entry);
    index = int(entries.size());
    return entry;
}

void CommandHistory::clear()
{
    entries.clear();
    index = 0;
}

QString CommandHistory::older(const QString &typed)
{
    while (index > 0) {
        if (entries.at(--index) != typed)
            break;
    }
    return entries.at(index);
}

QString CommandHistory::newer(const QString &typed)
{
    const int newest = int(entries.size()) - 1;
    do {
        ++index;
    } while (index <= newest && entries.at(index) == typed);
    index = std::min(index, newest);
    return entries.at(index);
}
