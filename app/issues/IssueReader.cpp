#include "app/issues/IssueReader.h"

#include "app/places/placepatterns.h"

using namespace Qt::Literals::StringLiterals;

namespace {

// What a message keeps of the lines behind it.
constexpr qsizetype mostDetails = 4000;

// Of tools that say no place.
bool isErrorWithoutPlace(const QString &line)
{
    return line.startsWith("ERROR: "_L1) || line.startsWith("FATAL: "_L1);
}

bool leadsToMessage(const QString &line)
{
    return line.startsWith("In file included from "_L1)
        || line.startsWith("                 from "_L1) || line.contains(": In "_L1)
        || line.contains("   required from "_L1);
}

} // namespace

void IssueReader::take(const QString &line)
{
    const QList<TextPlace> places = placepatterns::placesIn(line);
    const bool isNote = !places.isEmpty() && places.first().severity == TextPlace::Note;
    const bool isMessage = !places.isEmpty() && places.first().severity != TextPlace::None;
    if (isMessage && !(isNote && !found.isEmpty())) {
        begin(places.first(), line);
    } else if (places.isEmpty() && isErrorWithoutPlace(line)) {
        TextPlace place;
        place.severity = TextPlace::Error;
        place.message = line.section(u": "_s, 1);
        begin(place, line);
    } else if (leadsToMessage(line)) {
        before += line + u'\n';
    } else if (!found.isEmpty() && found.last().details.size() < mostDetails) {
        found.last().details += u'\n' + line;
    }
}

void IssueReader::begin(const TextPlace &place, const QString &line)
{
    Issue issue;
    issue.severity = place.severity;
    issue.message = place.message;
    issue.file = place.file;
    issue.line = place.line;
    issue.column = place.column;
    issue.details = before + line;
    before.clear();
    found.append(issue);
}
