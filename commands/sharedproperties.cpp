#include "commands/sharedproperties.h"

#include "commands/ExecBracket.h"

#include <Qtilities/ObjectManager.h>
#include <Qtilities/SharedProperty.h>
#include <Qtilities/utf8text.h>

using Qtilities::Core::ObjectManager;
using Qtilities::Core::QtilitiesProperty;
using Qtilities::Core::SharedProperty;

namespace commands {

namespace {

// %1 is the property's name, %2 the item's label and %3 what such an item is called.
constexpr struct
{
    QStringView missingToRemove =
        u"Failed to remove property \"%1\" on %3 \"%2\". It does not exist";
    QStringView notRemovable =
        u"Failed to remove property \"%1\" on %3 \"%2\". This is a non-removable property";
    QStringView removed = u"Successfully removed property \"%1\" on %3 \"%2\"";
    QStringView missingToGet = u"Failed to get property \"%1\" on %3 \"%2\". It does not exist";
    QStringView invalid = u"Failed to get property \"%1\" on %3 \"%2\". It exists but is invalid";
    QStringView readOnly =
        u"Failed to set value of property \"%1\" on %3 \"%2\". This is a read only property";
    QStringView tooFewArguments =
        u"You did not provide enough parameters to set property \"%1\" on %3 \"%2\"";
    QStringView badReadOnlyWord =
        u"Making a property read only is specified using \"true\" or \"false\" (Case Insensitive)";
    QStringView badValue = u"Failed to set property \"%1\" on %3 \"%2\". Property type and value "
                           "combination is invalid";
    QStringView notSet = u"Failed to set property \"%1\" on %3 \"%2\"";
    QStringView set = u"Successfully set property \"%1\" on %3 \"%2\"";
} texts;

// The name that a call gives, as the object manager takes it. A name that would not come back as
// it went in, such as one that holds a zero character, is that of no property.
class Name
{
public:
    explicit Name(const ItemCall &call) : text(call.arguments[3]), bytes(text.toUtf8())
    {
        if (text.contains(QChar(u'\0')) || Qtilities::Core::textOfUtf8(bytes) != text)
            bytes.clear();
    }

    const char *data() const { return bytes.constData(); }
    bool isUsable() const { return !bytes.isEmpty(); }

private:
    QString text;
    QByteArray bytes;
};

bool exists(const ItemCall &call, const Name &name)
{
    return name.isUsable() && ObjectManager::propertyExists(&call.item, name.data());
}

SharedProperty fetch(const ItemCall &call, const Name &name)
{
    return name.isUsable() ? ObjectManager::getSharedProperty(&call.item, name.data())
                           : SharedProperty();
}

QString about(QStringView text, const ItemCall &call, const QString &label)
{
    return fill(text, {call.arguments[3], label, call.kind.texts.sharedPropertyOf.toString()});
}

QString about(QStringView text, const ItemCall &call)
{
    return about(text, call, call.kind.label(call.item));
}

Outcome remove(const ItemCall &call)
{
    if (const std::optional<Outcome> refusal = call.kind.refusal(call))
        return *refusal;
    const Name name(call);
    if (!exists(call, name))
        return Outcome::error(about(texts.missingToRemove, call));
    if (!fetch(call, name).isRemovable())
        return Outcome::error(about(texts.notRemovable, call));
    const QString label = call.kind.label(call.item);
    // Not bracketed.
    call.item.setProperty(name.data(), QVariant());
    return Outcome::ok(about(texts.removed, call, label));
}

Outcome get(const ItemCall &call)
{
    const Name name(call);
    if (!exists(call, name))
        return Outcome::error(about(texts.missingToGet, call));
    const SharedProperty property = fetch(call, name);
    return property.isValid() ? Outcome::ok(property.value().toString())
                              : Outcome::error(about(texts.invalid, call));
}

// The read-only word of a call; nothing for a bad one. Only a call of exactly seven arguments has
// one.
std::optional<bool> readOnlyWord(const ItemCall &call)
{
    return call.arguments.count() == 7 ? truthWord(call.arguments[6]) : false;
}

// Whether the property is read-only comes before the number of arguments.
Outcome set(const ItemCall &call)
{
    if (const std::optional<Outcome> refusal = call.kind.refusal(call))
        return *refusal;
    const Name name(call);
    if (fetch(call, name).isReadOnly())
        return Outcome::error(about(texts.readOnly, call));
    if (call.arguments.count() <= 5)
        return Outcome::error(about(texts.tooFewArguments, call));
    const std::optional<bool> readOnly = readOnlyWord(call);
    if (!readOnly)
        return Outcome::error(texts.badReadOnlyWord.toString());
    const QVariant value =
        QtilitiesProperty::constructVariant(call.arguments[4], call.arguments[5]);
    if (!value.isValid())
        return Outcome::error(about(texts.badValue, call));

    const QString label = call.kind.label(call.item);
    SharedProperty property(name.data(), value);
    bool stored = false;
    {
        ExecBracket bracket;
        stored = name.isUsable() && ObjectManager::setSharedProperty(&call.item, property);
    }
    // Comes too late for what is stored, which stays writable.
    property.setReadOnly(*readOnly);
    return stored ? Outcome::ok(about(texts.set, call, label))
                  : Outcome::error(about(texts.notSet, call, label));
}

} // namespace

const Subcommand<ItemCall> sharedPropertyActions[] = {
    {"exists", anyArguments,
     [](const ItemCall &call) { return Outcome::found(exists(call, Name(call))); }},
    {"remove", anyArguments, remove},
    {"get", anyArguments, get},
    {"set", anyArguments, set},
};

} // namespace commands
