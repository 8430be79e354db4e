#include "ensemble/Value.h"

#include "interp/tcltext.h"

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace ensemble {

namespace {

Tcl_Obj *objectOf(const QString &text)
{
    const QByteArray bytes = tcltext::toTcl(text);
    return Tcl_NewStringObj(bytes.constData(), int(bytes.size()));
}

QString textOf(Tcl_Obj *object)
{
    int length = 0;
    const char *bytes = Tcl_GetStringFromObj(object, &length);
    return tcltext::fromTcl(bytes, length);
}

// In Tcl's own words.
QString reasonOfNoList(Tcl_Obj *object)
{
    Tcl_Interp *asker = Tcl_CreateInterp();
    int count = 0;
    Tcl_ListObjLength(asker, object, &count);
    const QString reason = tcltext::result(asker);
    Tcl_DeleteInterp(asker);
    return reason;
}

} // namespace

Value::Value() : Value(Tcl_NewObj()) { }

Value::Value(Tcl_Obj *value) : held(value) { Tcl_IncrRefCount(held); }

Value::Value(const QString &text) : Value(objectOf(text)) { }

Value::Value(const Value &other) : Value(other.held) { }

Value &Value::operator=(const Value &other)
{
    Tcl_IncrRefCount(other.held);
    Tcl_DecrRefCount(held);
    held = other.held;
    return *this;
}

Value::~Value() { Tcl_DecrRefCount(held); }

Value Value::number(qint64 number) { return Value(Tcl_NewWideIntObj(number)); }

Value Value::truth(bool flag) { return Value(flag ? u"true"_s : u"false"_s); }

Value Value::list() { return Value(Tcl_NewListObj(0, nullptr)); }

Value Value::list(const QStringList &texts)
{
    Value all = list();
    for (const QString &text : texts)
        all.append(Value(text));
    return all;
}

Value Value::dictionary() { return Value(Tcl_NewDictObj()); }

Value &Value::append(const Value &element)
{
    Tcl_ListObjAppendElement(nullptr, held, element.held);
    return *this;
}

Value &Value::set(const QString &key, const Value &value)
{
    Tcl_DictObjPut(nullptr, held, Value(key).held, value.held);
    return *this;
}

QString Value::text() const { return textOf(held); }

Result<QStringList> Value::toList() const
{
    int count = 0;
    Tcl_Obj **elements = nullptr;
    if (Tcl_ListObjGetElements(nullptr, held, &count, &elements) != TCL_OK)
        return Status::invalidArgument(reasonOfNoList(held));
    QStringList texts;
    for (int i = 0; i < count; ++i)
        texts.append(textOf(elements[i]));
    return texts;
}

} // namespace ensemble
