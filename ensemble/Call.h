#pragma once

#include "ensemble/Row.h"

#include <QList>

#include <map>
#include <optional>
#include <string_view>

namespace ensemble {

// The words of one call behind those of its row, sorted into arguments and options. The arguments
// that a row requires come first and are taken as they are, so that any text can be a name or a
// value. Behind them options may stand in any order, and "--" ends them. Where options have values
// and one more argument may stand, an odd number of words says that it does.
class Call
{
public:
    // A failure when the words are not what the row wants.
    static Qtilities::Core::Result<Call> parse(const Row &row, const QString &prefix,
                                               std::span<Tcl_Obj *const> words);

    qsizetype count() const { return arguments.size(); }
    // The null text behind the last argument.
    QString argument(qsizetype index) const { return arguments.value(index); }
    QStringList argumentsFrom(qsizetype index) const { return arguments.sliced(index); }

    bool has(std::string_view option) const { return options.contains(option); }
    // Nothing when the option is not given.
    std::optional<QString> text(std::string_view option) const;
    std::optional<Value> value(std::string_view option) const;

private:
    struct Reader;

    QStringList arguments;
    std::map<std::string_view, Value> options;
};

} // namespace ensemble
