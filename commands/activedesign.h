#pragma once

#include "commands/Outcome.h"
#include "commands/texts.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/IDesign.h>

#include <QObject>
#include <QPointer>

namespace commands {

using MorvalenCore::Interfaces::IDesign;

// A call of a command that works on the active design. The name is the one that the design has
// when the command starts.
struct DesignCall
{
    DesignCall(const Arguments &callArguments, IDesign &activeDesign)
        : arguments(callArguments),
          design(activeDesign),
          designName(activeDesign.name())
    {
    }

    Arguments arguments;
    IDesign &design;
    QString designName;
};

// Knows whether a design is still there after something that may have handled events, in which a
// user or another script may have closed it.
class DesignGuard
{
public:
    explicit DesignGuard(IDesign &design) : object(design.objectBase()) { }

    explicit operator bool() const { return !object.isNull(); }

private:
    QPointer<QObject> object;
};

// What a step comes to that is run on the active design, the first of the design manager's active
// designs; an error when there is none.
template <typename Step>
Outcome onActiveDesign(const Step &step)
{
    const QList<IDesign *> active = MorvalenCore::DesignManager::instance()->activeDesigns();
    if (active.isEmpty())
        return Outcome::error(QStringLiteral("No active design"));
    if (!active.first())
        return Outcome::error(QStringLiteral("Failed to find active design"));
    return step(*active.first());
}

} // namespace commands
