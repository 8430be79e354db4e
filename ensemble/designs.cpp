#include "ensemble/designs.h"

#include <MorvalenCore/AbstractScriptedAction.h>
#include <MorvalenCore/DesignManager.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::AbstractScriptedAction;
using MorvalenCore::DesignManager;

namespace ensemble {

Bracket::Bracket() { AbstractScriptedAction::initExec(); }

Bracket::~Bracket() { AbstractScriptedAction::finalizeExec(); }

QString idOf(const IDesign &design) { return design.id(u"."_s); }

Result<IDesign *> findDesign(const QString &id)
{
    if (IDesign *design = DesignManager::instance()->design(id))
        return design;
    return Status::notFound(u"No design with the id \"%1\" is open"_s.arg(id));
}

Result<IDesign *> activeDesign()
{
    if (IDesign *design = DesignManager::instance()->activeDesigns().value(0))
        return design;
    return Status::notFound(u"No design is active"_s);
}

Answer onDesign(const Call &call, const std::function<Answer(IDesign &)> &step)
{
    const auto id = call.text(designOption.name);
    const Result<IDesign *> design = id ? findDesign(*id) : activeDesign();
    return design.isOk() ? step(*design.value()) : Answer::of(design.status());
}

Answer changeDesign(const Call &call, const std::function<Answer(IDesign &)> &step)
{
    return onDesign(call, [&step](IDesign &design) {
        if (design.isReadOnly())
            return Answer::failure(kind::readOnly,
                                   u"The design \"%1\" is read-only"_s.arg(design.name()));
        const Bracket bracket;
        return step(design);
    });
}

} // namespace ensemble
