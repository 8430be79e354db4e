#pragma once

#include <QString>

// Why the open designs want a file left alone.
namespace designhold {

// Clauses such as "it is the component file of ..."; empty where there is no reason. The path is
// canonical.
QString asComponentFile(const QString &path);
QString asFileOfReadOnlyDesign(const QString &path);

} // namespace designhold
