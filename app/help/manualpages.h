#pragma once

#include <QString>
#include <QStringList>

// The pages of the commands' manual, in Markdown. What a command is called, what it does and how it
// is called come from the commands' own tables; the text around that is the documentation's.
namespace manualpages {

// The name of the page that lists all others.
inline const QString contents = QStringLiteral("README");

// All pages in reading order, the contents first.
QStringList names();

// A page; empty for an unknown name.
QString page(const QString &name);

} // namespace manualpages
