#include "app/places/placepatterns.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace placepatterns {

namespace {

// A row: who prints it, the pattern, and what it means where the text has no word for that. In the
// patterns "@:#" stands for a file and a line with or without a column, and ":#" for the line.
struct Row
{
    const char *tool;
    const char16_t *pattern;
    TextPlace::Severity severity;
    // Whether a line can have several.
    bool anywhere = false;
};

// A file has a letter, a point or a slash in its name, so that a time of day is none.
const QString filePattern = uR"re((?<file>(?=[^:]*[A-Za-z_./])[^\s:"'<>|%(][^:"<>|]*))re"_s;
const QString linePattern = uR"re((?<line>\d+)(?::(?<column>\d+))?)re"_s;

using enum TextPlace::Severity;

constexpr Row rows[] = {
    {"Verilator", uR"re(^%(?<kind>Error|Warning)(?:-\w+)?: @:#: (?<message>.+))re", Error},
    {"GHDL's simulation",
     uR"re(^@:#:@[^:]*:\((?:report|assertion) (?<kind>\w+)\): (?<message>.*))re", Note},
    {"GCC, GHDL, Icarus and Yosys",
     uR"re(^@:#: ?(?<kind>(?:fatal |internal )?(?i:error|warning|note)|sorry): (?<message>.+))re",
     Error},
    {"Icarus", uR"re(^@:#: (?<message>syntax error.*))re", Error},
    {"a simulation of Icarus", uR"re(^(?<kind>ERROR|WARNING|FATAL|INFO): @:#: (?<message>.*))re",
     Note},
    {"GHDL", uR"re(^(?<file>[^\s:][^:]*\.vhdl?):#: (?!\s)(?<message>.+))re", Error},
    {"the linker", uR"re(^(?:\S*\bld: )?@:#: (?<message>(?:undefined reference|multiple def).+))re",
     Error},
    {"GCC", uR"re(^(?:In file included|                ) from @:#[:,])re", None},
    {"Tcl",
     uR"re(\(procedure "(?<name>[^"]+)" line \d+, file "(?<file>.+?)" line (?<line>\d+)\))re", None,
     true},
    {"Tcl", uR"re(\(file "(?<file>.+?)" line (?<line>\d+)\))re", None, true},
    {"Tcl", uR"re(\(procedure "(?<procedure>.+?)" line (?<line>\d+)\))re", None, true},
    {"Yosys",
     uR"re((?<![^\s(|"])(?<file>[^\s:"'<>|(]+):(?<line>\d+)\.(?<column>\d+)(?:-\d+\.\d+)?)re", None,
     true},
    {"any tool",
     uR"re((?<![^\s("'[=,])(?<file>[^\s:"'<>|([=,]*(?:/[^\s:"'<>|([=,/]+|\.[A-Za-z]\w*)):#\b)re",
     None, true},
    {"any tool", uR"re(^@:#:)re", None},
};

struct Rule
{
    QRegularExpression pattern;
    TextPlace::Severity severity;
    bool anywhere;
};

const QList<Rule> &rules()
{
    static const QList<Rule> made = [] {
        QList<Rule> all;
        for (const Row &row : rows) {
            QString pattern = QString::fromUtf16(row.pattern);
            pattern.replace(u"@:#"_s, filePattern + u":#"_s).replace(u":#"_s, u':' + linePattern);
            all.append({QRegularExpression(pattern), row.severity, row.anywhere});
        }
        return all;
    }();
    return made;
}

TextPlace::Severity severityOf(const QString &word, TextPlace::Severity usual)
{
    const QString kind = word.toLower();
    if (kind.isEmpty())
        return usual;
    if (kind == u"warning")
        return Warning;
    return kind == u"note" || kind == u"info" ? Note : Error;
}

// A row without the name has no such part.
QString part(const QRegularExpressionMatch &match, QAnyStringView name)
{
    const bool isThere = match.regularExpression().namedCaptureGroups().contains(name.toString());
    return isThere ? match.captured(name.toString()) : QString();
}

TextPlace placeOf(const QRegularExpressionMatch &match, TextPlace::Severity severity)
{
    TextPlace place;
    place.file = part(match, u"file");
    place.procedure = part(match, u"procedure");
    place.line = match.captured(u"line"_s).toInt();
    place.column = part(match, u"column").toInt();
    place.message = part(match, u"message").trimmed();
    place.severity = severityOf(part(match, u"kind"), severity);
    const QString first = place.file.isEmpty() ? u"procedure"_s : u"file"_s;
    const QString last = place.column > 0 ? u"column"_s : u"line"_s;
    place.start = match.capturedStart(first);
    place.length = match.capturedEnd(last) - place.start;
    return place;
}

// Most lines name no place, and are told by a look.
bool canNamePlace(const QString &line)
{
    for (qsizetype at = line.indexOf(u':'); at >= 0; at = line.indexOf(u':', at + 1)) {
        if (at + 1 < line.size() && line[at + 1].isDigit())
            return true;
    }
    return line.contains("\" line "_L1);
}

} // namespace

QList<TextPlace> placesIn(const QString &whole)
{
    const QString line = whole.left(longestLine);
    if (!canNamePlace(line) || isExcerpt(line))
        return {};
    QList<TextPlace> places;
    for (const Rule &rule : rules()) {
        for (auto found = rule.pattern.globalMatch(line); found.hasNext();) {
            const TextPlace place = placeOf(found.next(), rule.severity);
            if (place.line > 0)
                places.append(place);
            if (!rule.anywhere)
                break;
        }
        if (!places.isEmpty())
            break;
    }
    return places;
}

bool isExcerpt(const QString &line)
{
    static const QRegularExpression pattern(uR"re(^\s*\d*\s+\|( |$)|^\s*[~^][~^ ]*$)re"_s);
    return pattern.match(line).hasMatch();
}

} // namespace placepatterns
