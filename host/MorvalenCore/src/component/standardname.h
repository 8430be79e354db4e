#pragma once

#include <QString>

namespace MorvalenCore {

// Where the standard wants a name: a word that must begin like a name, or any word of the
// characters of names.
enum class NameForm { Name, NameToken };

// The text as a name that every generation's schema accepts: what it does not allow becomes "_".
// The same text where there is nothing to change.
QString standardName(const QString &text, NameForm form);

} // namespace MorvalenCore
