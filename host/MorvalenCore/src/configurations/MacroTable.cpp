#include "configurations/MacroTable.h"

#include "build/macros.h"
#include "configurations/ConfigurationItem.h"
#include "items/DesignState.h"

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

// What is a name or a path, not a text with macros in it.
QString asItIs(QString text) { return text.replace(u"$("_s, u"$$("_s); }

} // namespace

QHash<QString, QString> MacroTable::designMacros() const
{
    const DesignDocument &document = state.document();
    QHash<QString, QString> macros;
    for (const PropertyId &property : document.properties().properties()) {
        const QString name = document.properties().name(property);
        if (!name.isEmpty() && !macros.contains(name))
            macros.insert(name, document.properties().value(property));
    }

    const struct
    {
        QString name;
        DesignField field;
    } identity[] = {{u"DESIGN_VENDOR"_s, DesignField::Vendor},
                    {u"DESIGN_LIBRARY"_s, DesignField::Library},
                    {u"DESIGN_NAME"_s, DesignField::Name},
                    {u"DESIGN_VERSION"_s, DesignField::Version}};
    QStringList id;
    for (const auto &part : identity) {
        id.append(document.text(part.field));
        macros.insert(part.name, asItIs(id.last()));
    }
    macros.insert(u"DESIGN_ID"_s, asItIs(id.join(u'.')));
    macros.insert(u"DESIGN_FOLDER"_s, asItIs(state.folder()));
    return macros;
}

QHash<QString, QString> MacroTable::configurationMacros() const
{
    QHash<QString, QString> macros {
        {u"CONFIGURATION"_s, asItIs(configuration.configurationName())},
        {u"TARGET_PATH"_s, asItIs(configuration.targetPathOnDisk().valueOr({}))},
    };
    for (const BuildMacro &macro : configuration.ownMacros())
        macros.insert(macro.name, macro.value);
    return macros;
}

QHash<QString, QString> MacroTable::macroValues(MacroMode mode) const
{
    const QHash<QString, QString> all = rawValues(DesignMacros | ConfigurationMacros);
    QHash<QString, QString> macros = rawValues(mode);
    for (QString &value : macros)
        value = expandMacros(value, {{}, &all}).valueOr(value);
    return macros;
}

QHash<QString, QString> MacroTable::rawValues(MacroMode mode) const
{
    QHash<QString, QString> macros;
    if (mode.testFlag(DesignMacros))
        macros.insert(designMacros());
    if (mode.testFlag(ConfigurationMacros))
        macros.insert(configurationMacros());
    if (mode.testFlag(StepMacros)) {
        for (const QString &name : {u"STEP"_s, u"INPUTS"_s, u"OUTPUTS"_s})
            macros.insert(name, QString());
    }
    return macros;
}

} // namespace MorvalenCore
