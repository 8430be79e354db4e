// Project files: whatever the bytes are, they are refused with a sentence and nothing is opened, or
// they are a project that is the same when it is saved and opened again.

#include "tests/fuzz/Fuzzing.h"
#include "tests/fuzz/Mutator.h"

#include <Qtilities/IProjectItem.h>
#include <Qtilities/ProjectEntry.h>
#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::ProjectManagement::IProjectItem;
using Qtilities::ProjectManagement::ProjectEntry;
using Qtilities::ProjectManagement::ProjectManager;

namespace {

const QList<QByteArray> goodOnes {
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<project version=\"1\" name=\"demo\">\n"
    "    <things>\n        <entry path=\"a.xml\"/>\n"
    "        <entry path=\"/abs/b.xml\" active=\"true\"/>\n    </things>\n</project>\n",
    "<project version=\"1\">\n    <things/>\n    <more>\n        <entry path=\"../x y/c\"/>\n"
    "    </more>\n</project>",
    "<?xml version=\"1.0\"?>\n<project version=\"1\" name=\"&lt;&quot;\"/>\n"};

const QList<QByteArray> words {"<entry path=\"z\"/>",
                               "<entry",
                               " path=\"\"",
                               " active=\"true\"",
                               " active=\"maybe\"",
                               "<things>",
                               "</things>",
                               "<more/>",
                               "<project>",
                               "</project>",
                               "<!--",
                               "-->",
                               "<![CDATA[",
                               "]]>",
                               "&amp;",
                               "&#1;",
                               "&#xFFFE;",
                               "&#xFEFF;",
                               "&#x1F600;",
                               "&unknown;",
                               "<!DOCTYPE project [<!ENTITY a \"b\">]>",
                               "version=\"2\"",
                               "name=\"\"",
                               "p.mvproject",
                               " xmlns=\"urn:x\"",
                               "<?x y?>",
                               "encoding=\"UTF-16\""};

// Takes every entry of its section.
class Things : public IProjectItem
{
public:
    explicit Things(const QString &sectionName) : name(sectionName) { }

    QString sectionName() const override { return name; }
    QList<ProjectEntry> entries() const override
    {
        QList<ProjectEntry> all;
        for (const QString &path : paths)
            all.append({path, path == active, 0});
        return all;
    }
    Status check(const ProjectEntry &) const override { return {}; }
    Status open(const ProjectEntry &entry) override
    {
        if (!paths.contains(entry.path))
            paths.append(entry.path);
        return {};
    }
    void activate(const ProjectEntry &entry) override { active = entry.path; }
    Status close(const ProjectEntry &entry) override
    {
        paths.removeAll(entry.path);
        if (active == entry.path)
            active.clear();
        return {};
    }

    QStringList paths;
    QString active;

private:
    const QString name;
};

class Projects : public Subject
{
public:
    Projects()
    {
        Qtilities::CoreGui::QtilitiesApplication::setApplicationSessionPath(
            folder.filePath(u"session"_s));
        manager.addProjectItem(&things);
        manager.addProjectItem(&more);
    }
    ~Projects() override
    {
        manager.closeProject();
        manager.removeProjectItem(&things);
        manager.removeProjectItem(&more);
    }

    QByteArray make(QRandomGenerator &random) override { return mutator.make(random); }

    QString finding(const QByteArray &input) override
    {
        manager.newProject();
        const QString file = folder.filePath(u"p.mvproject"_s);
        write(file, input);
        const Status opened = manager.tryOpenProject(file);
        if (!opened.isOk())
            return refusal(opened, file, input);
        const QStringList before = told();
        const QString copy = folder.filePath(u"copy/q.mvproject"_s);
        write(copy, {});
        const Status saved = manager.trySaveProject(copy, true);
        if (!saved.isOk())
            return u"cannot be saved: "_s + saved.text();
        manager.newProject();
        const Status again = manager.tryOpenProject(copy);
        if (!again.isOk())
            return u"cannot be opened again: "_s + again.text();
        return told() == before ? QString()
                                : u"is {%1}, and {%2} when it is opened again"_s.arg(
                                    before.join(u' '), told().join(u' '));
    }

private:
    QString refusal(const Status &status, const QString &file, const QByteArray &input) const
    {
        if (status.text().isEmpty())
            return u"is refused without a sentence"_s;
        if (!things.paths.isEmpty() || !more.paths.isEmpty())
            return u"is refused, and something is open: "_s + told().join(u' ');
        QFile left(file);
        return left.open(QIODevice::ReadOnly) && left.readAll() == input
            ? QString()
            : u"is refused, and changed on disk"_s;
    }

    // A project without a name of its own has its file's.
    QStringList told() const
    {
        const QString name = manager.currentProjectName();
        const bool isOfFile =
            name == QFileInfo(manager.currentProjectFileName()).completeBaseName();
        return QStringList {isOfFile ? QString() : name} + things.paths + more.paths
            + QStringList {things.active, more.active};
    }

    void write(const QString &path, const QByteArray &bytes) const
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile out(path);
        if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(path));
    }

    const QTemporaryDir folder;
    ProjectManager manager;
    Things things {u"things"_s};
    Things more {u"more"_s};
    const Mutator mutator {goodOnes, words};
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    Projects projects;
    return Fuzzing(u"fuzz_project"_s, projects).run(QCoreApplication::arguments().sliced(1));
}
