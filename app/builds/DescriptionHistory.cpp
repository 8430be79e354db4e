#include "app/builds/DescriptionHistory.h"

void DescriptionHistory::begin(const BuildDescription &description)
{
    states = {description};
    at = 0;
    lastField = nullptr;
}

void DescriptionHistory::note(const BuildDescription &description, const QObject *field)
{
    if (states.isEmpty())
        return begin(description);
    if (states[at] == description)
        return;
    states.resize(at + 1);
    const bool goesOn = field && field == lastField && at > 0;
    // Another row, or none, is no typing.
    const BuildDescription &last = states[at];
    const bool isAlike = last.macros.size() == description.macros.size()
        && last.steps.size() == description.steps.size();
    if (goesOn && isAlike)
        states[at] = description;
    else
        states.append(description);
    at = states.size() - 1;
    lastField = field;
}

const MorvalenCore::BuildDescription &DescriptionHistory::undo()
{
    lastField = nullptr;
    return states[--at];
}

const MorvalenCore::BuildDescription &DescriptionHistory::redo()
{
    lastField = nullptr;
    return states[++at];
}
