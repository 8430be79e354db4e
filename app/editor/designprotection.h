#pragma once

#include <QString>

// Which files the open designs protect from changes, and why.
namespace designprotection {

// Clauses such as "it is the component file of ..."; empty where there is no reason. The path is
// canonical.
QString ofComponentFile(const QString &path);
QString ofReadOnlyDesign(const QString &path);

} // namespace designprotection
