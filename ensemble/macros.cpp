#include "ensemble/macros.h"

#include "ensemble/configurations.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildMacro;

namespace ensemble {

namespace {

Answer noSuchMacro(const Call &call)
{
    return Answer::failure(kind::missing,
                           u"The build configuration \"%1\" has no macro \"%2\""_s.arg(
                               call.argument(0), call.argument(1)));
}

template <typename Macros>
auto find(Macros &macros, const Call &call)
{
    return std::find_if(macros.begin(), macros.end(), [&call](const BuildMacro &macro) {
        return macro.name == call.argument(1);
    });
}

Answer list(const Call &call)
{
    return onConfiguration(call, [](const BuildConfiguration &configuration) {
        Value names = Value::list();
        for (const BuildMacro &macro : configuration.description().macros)
            names.append(Value(macro.name));
        return Answer(names);
    });
}

Answer get(const Call &call)
{
    return onConfiguration(call, [&call](const BuildConfiguration &configuration) {
        const QList<BuildMacro> macros = configuration.description().macros;
        const auto macro = find(macros, call);
        return macro == macros.end() ? noSuchMacro(call) : Answer(macro->value);
    });
}

Answer set(const Call &call)
{
    return changeConfiguration(call, [&call](BuildDescription &description) {
        if (call.argument(1).isEmpty())
            return Answer::failure(kind::invalid, u"The name of a macro cannot be empty"_s);
        const auto macro = find(description.macros, call);
        if (macro == description.macros.end())
            description.macros.append({call.argument(1), call.argument(2)});
        else
            macro->value = call.argument(2);
        return Answer();
    });
}

Answer unset(const Call &call)
{
    return changeConfiguration(call, [&call](BuildDescription &description) {
        const auto macro = find(description.macros, call);
        if (macro == description.macros.end())
            return noSuchMacro(call);
        description.macros.erase(macro);
        return Answer();
    });
}

constexpr Option designOnly[] = {designOption};

constexpr Row rows[] = {
    {.word = "list",
     .arguments = "CONFIGURATION",
     .options = designOnly,
     .does = "the names of the macros of a build configuration",
     .step = list},
    {.word = "get",
     .arguments = "CONFIGURATION NAME",
     .options = designOnly,
     .does = "the value of a macro, as it was set",
     .step = get},
    {.word = "set",
     .arguments = "CONFIGURATION NAME VALUE",
     .options = designOnly,
     .does = "sets a macro, or adds it",
     .step = set},
    {.word = "unset",
     .arguments = "CONFIGURATION NAME",
     .options = designOnly,
     .does = "removes a macro",
     .step = unset},
};

} // namespace

constinit const Rows macroRows = rows;

} // namespace ensemble
