#include "ensemble/reload.h"

#include "ensemble/designs.h"

using namespace Qt::Literals::StringLiterals;

namespace ensemble {

namespace {

constexpr Option reloadOptionRows[] = {{"-discard"}};

} // namespace

constinit const Options reloadOptions = reloadOptionRows;

// The id is the answer: the file may have another one than the design had.
Answer reload(const Call &call)
{
    const Result<IDesign *> found =
        call.count() == 1 ? findDesign(call.argument(0)) : activeDesign();
    if (!found.isOk())
        return Answer::of(found.status());
    IDesign *design = found.value();
    if (design->isModified() && !call.has("-discard"))
        return Answer::failure(
            kind::modified,
            u"The design \"%1\" has changes that are not saved"_s.arg(design->name()));
    const Bracket bracket;
    const Answer reloaded = Answer::of(design->reloadComponentFile());
    return reloaded.isFailure() ? reloaded : Answer(idOf(*design));
}

} // namespace ensemble
