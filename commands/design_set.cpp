#include "commands/design_set.h"

#include "commands/ExecBracket.h"

#include <QCoreApplication>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;

namespace commands {

namespace {

constexpr struct
{
    QStringView noValue = u"You did not provide a new value for \"%1\"";
    QStringView changed = u"Successfully changed \"%1\" on active design";
    QStringView badReadOnlyWord =
        u"New read only state's value is specified using \"true\" or \"false\" (Case Insensitive)";
    QStringView badBusyWord =
        u"New busy state's value is specified using \"true\" or \"false\" (Case Insensitive)";
} texts;

Outcome changed(const DesignCall &call)
{
    return Outcome::ok(fill(texts.changed, {call.arguments[2]}));
}

template <auto Setter>
Outcome setText(const DesignCall &call)
{
    {
        ExecBracket bracket;
        (call.design.*Setter)(call.arguments[3]);
    }
    return changed(call);
}

Outcome setName(const DesignCall &call)
{
    const QString name = call.arguments[3];
    QString error;
    if (!DesignManager::instance()->checkDesignName(name, &error, &call.design))
        return Outcome::error(error);
    {
        ExecBracket bracket;
        call.design.setName(name);
        // Shows the new name while the script runs; the design may be gone afterwards.
        QCoreApplication::processEvents();
    }
    return changed(call);
}

Outcome setReadOnly(const DesignCall &call)
{
    {
        ExecBracket bracket;
        const std::optional<bool> readOnly = truthWord(call.arguments[3]);
        if (!readOnly)
            return Outcome::error(texts.badReadOnlyWord.toString());
        call.design.setReadOnly(*readOnly);
    }
    return changed(call);
}

// Not bracketed: everybody is to see at once that the design is busy.
Outcome setBusy(const DesignCall &call)
{
    const std::optional<bool> busy = truthWord(call.arguments[3]);
    if (!busy)
        return Outcome::error(texts.badBusyWord.toString());
    call.design.setBusy(*busy, QString(), true);
    return changed(call);
}

} // namespace

const Subcommand<DesignCall> designSetAttributes[] = {
    {"name", anyArguments, setName},
    {"description", anyArguments, setText<&IDesign::setDescription>},
    {"vendor", anyArguments, setText<&IDesign::setVendor>},
    {"library", anyArguments, setText<&IDesign::setLibrary>},
    {"read_only", anyArguments, setReadOnly},
    {"author", anyArguments, setText<&IDesign::setAuthor>},
    {"busy", anyArguments, setBusy},
};

Outcome setDesignAttribute(const DesignCall &call)
{
    if (call.arguments.count() < 4)
        return Outcome::error(fill(texts.noValue, {call.arguments[2]}));
    return dispatch<DesignCall>(designSetAttributes, call, 2);
}

} // namespace commands
