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

IDesign *findDesign(const QString &id, Answer *answer)
{
    IDesign *design = DesignManager::instance()->design(id);
    if (!design)
        *answer = Answer::failure(kind::missing, u"No design with the id \"%1\" is open"_s.arg(id));
    return design;
}

Answer onDesign(const Call &call, const std::function<Answer(IDesign &)> &step)
{
    Answer missing;
    IDesign *design = nullptr;
    if (const auto id = call.text(designOption.name)) {
        design = findDesign(*id, &missing);
        return design ? step(*design) : missing;
    }
    design = DesignManager::instance()->activeDesigns().value(0);
    return design ? step(*design) : Answer::failure(kind::missing, u"No design is active"_s);
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
