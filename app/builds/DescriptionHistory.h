#pragma once

#include <MorvalenCore/BuildDescription.h>

#include <QList>
#include <QObject>
#include <QPointer>

// The states that a user has gone through while editing a build configuration, to be gone back and
// forth. What is typed in one field without a pause for another one is one state.
class DescriptionHistory
{
public:
    using BuildDescription = MorvalenCore::BuildDescription;

    // Forgets everything.
    void begin(const BuildDescription &description);
    // The user has changed something in a field; null when it was not in one.
    void note(const BuildDescription &description, const QObject *field);

    bool canUndo() const { return at > 0; }
    bool canRedo() const { return at + 1 < states.size(); }
    const BuildDescription &undo();
    const BuildDescription &redo();

private:
    QList<BuildDescription> states;
    qsizetype at = 0;
    QPointer<const QObject> lastField;
};
