#include "ensemble/templates.h"

#include "ensemble/designs.h"

#include <MorvalenCore/ConfigurationTemplate.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::ConfigurationTemplate;

namespace ensemble {

namespace {

constexpr Option templatesOptionRows[] = {designOption};

Value dictionaryOf(const ConfigurationTemplate &one)
{
    Value properties = Value::dictionary();
    for (const ConfigurationTemplate::Property &property : one.properties())
        properties.set(property.name, property.meaning);
    return Value::dictionary()
        .set(u"name"_s, one.name())
        .set(u"path"_s, one.path())
        .set(u"description"_s, one.description())
        .set(u"programs"_s, Value::list(one.programs()))
        .set(u"kinds"_s, Value::list(one.kinds()))
        .set(u"nodes"_s, Value::list(one.nodes()))
        .set(u"properties"_s, properties);
}

} // namespace

constinit const Options templatesOptions = templatesOptionRows;

Answer templates(const Call &call)
{
    if (call.count() == 0)
        return Value::list(ConfigurationTemplate::names());
    const auto one = ConfigurationTemplate::find(call.argument(0));
    if (!one.isOk())
        return Answer::of(one.status());
    const Answer withMissing = onDesign(call, [&one](const IDesign &design) {
        return dictionaryOf(one.value())
            .set(u"missing"_s, Value::list(one.value().missing(design)));
    });
    // Without any design there is something to tell, too.
    return withMissing.isFailure() && !call.has(designOption.name)
        ? Answer(dictionaryOf(one.value()))
        : withMissing;
}

} // namespace ensemble
