#pragma once

#include <QString>
#include <QStringList>

namespace Qtilities::Logging {

// The lines of a message: split at every kind of line end, a last one that is empty left out.
QStringList messageLines(const QString &text);

// A message as an entry of a log that is read line by line: PREFIX, the word for its type, a colon
// and its text. Further lines are indented, so that no message can pass for two, and control
// characters other than the tab are spelt \x1b, so that none reaches a terminal.
QString logEntry(const QString &prefix, int type, const QString &text);

} // namespace Qtilities::Logging
