#pragma once

#include <Qtilities/Status.h>

#include <QString>
#include <QStringList>

#include <tcl.h>

namespace ensemble {

// A Tcl value, alive as long as somebody holds it. Belongs to the GUI thread, as Tcl does.
class Value
{
public:
    // The empty value.
    Value();
    explicit Value(Tcl_Obj *value);
    explicit Value(const QString &text);
    Value(const Value &other);
    Value &operator=(const Value &other);
    ~Value();

    static Value number(qint64 number);
    static Value truth(bool flag);

    // A list, and one of texts.
    static Value list();
    static Value list(const QStringList &texts);
    static Value dictionary();

    // For a value that was made as a list, or as a dictionary, and that nobody else holds.
    Value &append(const Value &element);
    Value &set(const QString &key, const Value &value);
    Value &set(const QString &key, const QString &text) { return set(key, Value(text)); }

    Tcl_Obj *object() const { return held; }
    QString text() const;

    // The texts of a list; Tcl's reason when it is none.
    Qtilities::Core::Result<QStringList> toList() const;

private:
    Tcl_Obj *held;
};

} // namespace ensemble
