#include "app/issues/WindowLinks.h"

#include "app/editor/placeopening.h"
#include "app/issues/IssueSources.h"
#include "app/issues/placesearch.h"
#include "app/messages/messages.h"
#include "app/places/placepatterns.h"
#include "app/places/TextLinks.h"
#include "interp/commandsManager.h"
#include "interp/errorstack.h"
#include "interp/ScriptRuns.h"

#include <MorvalenCore/BuildMonitor.h>

#include <QCoreApplication>
#include <QDir>
#include <QPlainTextEdit>

using MorvalenCore::BuildMonitor;
using Qtilities::Core::Status;
using Qtilities::CoreGui::LogLink;

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(WindowLinks)
};

QList<TextLinks::Link> linksOf(const QString &line)
{
    QList<TextLinks::Link> links;
    for (const TextPlace &place : placepatterns::placesIn(line))
        links.append({place.start, place.length});
    return links;
}

// Tcl counts the lines of a procedure from the begin of its body.
Status findProcedure(TextPlace *place)
{
    const ScriptRuns *runs = ScriptRuns::instance();
    if (runs && runs->isRunning())
        return Status::busy(Texts::tr("A script is running. Stop it first, with Escape."));
    Tcl_Interp *interp = commandsManager::getInstance(nullptr)->interp;
    const auto body = errorstack::placeOf(interp, place->procedure);
    if (!body)
        return Status::notFound(
            Texts::tr("The procedure \"%1\" was not read from a file.").arg(place->procedure));
    place->file = body->file;
    place->line += body->line - 1;
    return {};
}

Status show(TextPlace place, const QString &folder)
{
    if (place.file.isEmpty()) {
        const Status found = findProcedure(&place);
        if (!found.isOk())
            return found;
    }
    QString path = placesearch::find(place.file, folder);
    // Names have blanks, so that the words before one are taken for a part of it.
    for (qsizetype blank = place.file.indexOf(u' '); path.isEmpty() && blank >= 0;
         blank = place.file.indexOf(u' ', blank + 1))
        path = placesearch::find(place.file.sliced(blank + 1), folder);
    if (path.isEmpty())
        return Status::notFound(Texts::tr("There is no file \"%1\".").arg(place.file));
    return placeopening::show(path, place.line, place.column);
}

} // namespace

WindowLinks::WindowLinks() { setInstance(this); }

WindowLinks::~WindowLinks() = default;

void WindowLinks::attachTo(QTextEdit *edit)
{
    new TextLinks(edit, linksOf, [this](const QString &line, qsizetype start) {
        follow(line, start, contextOfMessage());
    });
}

void WindowLinks::attachTo(QPlainTextEdit *edit)
{
    new TextLinks(edit, linksOf, [this](const QString &line, qsizetype start) {
        follow(line, start, contextOfMessage());
    });
}

QString WindowLinks::contextOfMessage() const
{
    const BuildMonitor *monitor = BuildMonitor::instance();
    return monitor->speaking() ? IssueSources::folderOf(monitor->speaking()) : QDir::currentPath();
}

QList<LogLink> WindowLinks::linksIn(const QString &line) const
{
    QList<LogLink> links;
    for (const TextPlace &place : placepatterns::placesIn(line))
        links.append({place.start, place.length});
    return links;
}

void WindowLinks::follow(const QString &line, qsizetype start, const QString &folder)
{
    for (const TextPlace &place : placepatterns::placesIn(line)) {
        if (place.start != start)
            continue;
        const Status shown = show(place, folder);
        if (!shown.isOk())
            messages::tell(shown.text());
        return;
    }
}
