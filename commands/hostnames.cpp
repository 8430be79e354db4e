#include "commands/hostnames.h"

using namespace Qt::Literals::StringLiterals;

namespace commands::hostnames {

const QString autoMaximizeDesignWidgets = u"General.AutoMaximizeDesignWidgets"_s;
const QString inputParsers = u"Input Parsers"_s;
const QString outputParsers = u"Output Parsers"_s;
const QString diffParsers = u"Diff Parsers"_s;
const QString infoParsers = u"Info Parsers"_s;

} // namespace commands::hostnames
