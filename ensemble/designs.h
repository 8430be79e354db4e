#pragma once

#include "ensemble/Call.h"

#include <MorvalenCore/IDesign.h>

#include <functional>

namespace ensemble {

using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

// The option that names another design than the active one.
inline constexpr Option designOption {"-design", "ID"};

// The id under which the design manager knows a design.
QString idOf(const IDesign &design);

// The design that is open under an id, and the active one.
Result<IDesign *> findDesign(const QString &id);
Result<IDesign *> activeDesign();

// Brackets one operation that changes designs: open as long as it lives.
class [[nodiscard]] Bracket
{
public:
    Bracket();
    ~Bracket();
    Q_DISABLE_COPY_MOVE(Bracket)
};

// What the step comes to on the design that the call is about: the one that -design names, else
// the active one.
Answer onDesign(const Call &call, const std::function<Answer(IDesign &)> &step);

// The same for a step that changes the design: bracketed, and refused when the design is
// read-only.
Answer changeDesign(const Call &call, const std::function<Answer(IDesign &)> &step);

} // namespace ensemble
