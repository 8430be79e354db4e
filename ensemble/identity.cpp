#include "ensemble/identity.h"

#include "ensemble/designs.h"

#include <Qtilities/categorytext.h>

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignProperty;
using Qtilities::Core::QtilitiesProperty;

namespace ensemble {

namespace {

constexpr Option propertyOptionRows[] = {
    {"-type", "TYPE"}, {"-category", "CATEGORY"}, {"-readonly", "FLAG"}, designOption};

// The value of a type that a text stands for.
Result<QVariant> valueOf(const QString &type, const QString &text)
{
    static constexpr std::array types {"bool"_L1, "int"_L1, "uint"_L1, "double"_L1, "string"_L1};
    if (std::find(types.begin(), types.end(), type) == types.end())
        return Status::invalidArgument(u"unknown type \"%1\": must be %2"_s.arg(
            type, choices(QStringList(types.begin(), types.end()))));
    const QVariant value = QtilitiesProperty::constructVariant(type, text);
    if (!value.isValid())
        return Status::invalidArgument(u"\"%1\" is no value of type %2"_s.arg(text, type));
    return value;
}

Answer changeProperty(DesignProperty &property, const QVariant &value)
{
    const QtilitiesProperty data = property.propertyData();
    if (data.isReadOnly())
        return Answer::failure(kind::readOnly,
                               u"The property \"%1\" is read-only"_s.arg(data.name()));
    property.setValue(value);
    if (property.propertyData().value() != value)
        return Answer::failure(kind::refused,
                               u"The property \"%1\" does not take the value \"%2\""_s.arg(
                                   data.name(), value.toString()));
    return Answer();
}

Answer setProperty(IDesign &design, const Call &call)
{
    const QString name = call.argument(0);
    DesignProperty *property = design.propertyByName(name);
    const QString type = call.text("-type").value_or(
        property ? QtilitiesProperty::typeName(property->propertyData().value()) : u"string"_s);
    const Result<QVariant> value = valueOf(type, call.argument(1));
    if (!value.isOk())
        return Answer::of(value.status());
    if (property)
        return changeProperty(*property, value.value());
    const Result<QVariant> isReadOnly =
        valueOf(u"bool"_s, call.text("-readonly").value_or(u"false"_s));
    if (!isReadOnly.isOk())
        return Answer::of(isReadOnly.status());
    const auto category = Qtilities::Core::categoryFrom(call.text("-category").value_or(QString()));
    return Answer::of(
        design.tryAddProperty(name, category, value.value(), isReadOnly.value().toBool()).status());
}

Answer getProperty(const IDesign &design, const Call &call)
{
    const QString name = call.argument(0);
    if (const DesignProperty *property = design.propertyByName(name))
        return property->propertyData().value().toString();
    return Answer::failure(kind::missing,
                           u"The design \"%1\" has no property \"%2\""_s.arg(design.name(), name));
}

} // namespace

constinit const Options propertyOptions = propertyOptionRows;

Answer property(const Call &call)
{
    if (call.count() == 2)
        return changeDesign(call, [&call](IDesign &design) { return setProperty(design, call); });
    return onDesign(call, [&call](const IDesign &design) { return getProperty(design, call); });
}

Answer version(const Call &call)
{
    if (call.count() == 0)
        return onDesign(call, [](const IDesign &design) { return design.version(u"."_s); });
    return changeDesign(
        call, [&call](IDesign &design) { return Answer::of(design.setVersion(call.argument(0))); });
}

} // namespace ensemble
