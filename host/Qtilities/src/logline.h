#pragma once

#include <QString>
#include <QStringView>

namespace Qtilities::Logging {

// The first line of what is left of a message, which is shortened by it and its line end, of
// whatever kind that is.
QStringView takeLine(QStringView *rest);

// A message as an entry of a log that is read line by line: PREFIX, the word for its type, a colon
// and its text. Further lines are indented, so that no message can pass for two, and control
// characters other than the tab are spelt \x1b, so that none reaches a terminal.
QString logEntry(const QString &prefix, int type, const QString &text);

} // namespace Qtilities::Logging
