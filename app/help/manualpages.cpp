#include "app/help/manualpages.h"

#include "commands/commandmanuals.h"
#include "ensemble/manuals.h"
#include "interp/commandsManager.h"
#include "interp/tcltext.h"

#include <QCoreApplication>
#include <QFile>

using namespace Qt::Literals::StringLiterals;
using commands::CommandManual;
using commands::commandManuals;

namespace manualpages {

namespace {

const QString usageHeading = u"## Usage\n"_s;

QString document(const QString &name)
{
    QFile file(u":/manual/%1.md"_s.arg(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString cell(QString text) { return text.replace(u'|', u"\\|"_s); }

QString usageTable(const CommandManual &manual)
{
    QString table = usageHeading + u"\n| Call | Does |\n|---|---|\n"_s;
    for (const commands::ManualCall &call : manual.calls)
        table += u"| `%1` | %2 |\n"_s.arg(cell(call.call), cell(call.does));
    return table;
}

// What a document says from behind its heading and help line up to its usage, and behind that.
struct Prose
{
    QString before;
    QString after;
};

// Behind a table comes an empty line.
QString behindTable(const QString &text)
{
    const qsizetype table = text.indexOf(u"\n|"_s);
    const qsizetype end = table < 0 ? -1 : text.indexOf(u"\n\n"_s, table);
    return end < 0 ? QString() : text.sliced(end);
}

Prose proseOf(const QString &text, const QString &heading)
{
    QString body = text;
    if (body.startsWith(heading))
        body.remove(0, heading.size());
    const qsizetype usage = body.indexOf(usageHeading);
    if (usage < 0)
        return {body, {}};
    return {body.first(usage), behindTable(body.sliced(usage))};
}

QString commandPage(const CommandManual &manual)
{
    const QString heading = u"# %1\n\n%2\n\n"_s.arg(manual.word, manual.help);
    const Prose prose = proseOf(document(manual.word), heading);
    QString page = heading + prose.before;
    if (!manual.calls.isEmpty())
        page += usageTable(manual);
    return page + prose.after;
}

// The listing of "help", which has the commands of others too.
QString listing()
{
    Tcl_Interp *asker = Tcl_CreateInterp();
    const char *words[] = {"help", nullptr};
    commandsManager::getInstance(nullptr)->help(nullptr, asker, 1, words);
    const QString text = tcltext::result(asker);
    Tcl_DeleteInterp(asker);
    return text;
}

QString contentsPage()
{
    QString page = u"# %1\n\n| %2 | %3 |\n|---|---|\n"_s.arg(
        QCoreApplication::translate("manualpages", "Commands"),
        QCoreApplication::translate("manualpages", "Command"),
        QCoreApplication::translate("manualpages", "Help"));
    for (const CommandManual &manual : commandManuals())
        page += u"| [%1](%1.md) | %2 |\n"_s.arg(manual.word, cell(manual.help));
    return page + behindTable(document(contents)) + u"\n\n## "_s
        + QCoreApplication::translate("manualpages", "All that \"help\" lists") + u"\n\n```\n"_s
        + listing() + u"\n```\n"_s;
}

// Of the ensemble, whose documents are as its tables say.
QStringList ensembleNames()
{
    const QString command = u"morvalen"_s;
    QStringList all {command};
    for (const ensemble::Manual &manual : ensemble::manuals())
        all.append(command + u'-' + manual.word);
    return all;
}

} // namespace

QStringList names()
{
    QStringList all {contents};
    for (const CommandManual &manual : commandManuals())
        all.append(manual.word);
    return all + ensembleNames();
}

QString page(const QString &name)
{
    if (name == contents)
        return contentsPage();
    for (const CommandManual &manual : commandManuals()) {
        if (manual.word == name)
            return commandPage(manual);
    }
    return ensembleNames().contains(name) ? document(name) : QString();
}

} // namespace manualpages
