// What builds write in their target folders.

#include "build/BuildOutput.h"
#include "build/NinjaFile.h"
#include "build/OutputRecord.h"
#include "build/SharedLog.h"
#include "tests/faults/DesignsOnDisk.h"
#include "tests/faults/writerkinds.h"

#include <QDir>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildPlan;
using MorvalenCore::MadeOutput;
using MorvalenCore::NinjaFile;
using MorvalenCore::OutputRecord;
using Qtilities::Core::Status;

namespace {

class NinjaWriter : public Writer
{
public:
    explicit NinjaWriter(bool isFirst) : hasOldOne(!isFirst) { }

    void prepare(const QString &working) override
    {
        folder = working;
        const NinjaFile old(plan("old"));
        if (hasOldOne && !(old.makeFolder().isOk() && old.write().isOk()))
            qFatal("cannot write the first build.ninja");
    }

    Status write() override
    {
        const NinjaFile file(plan("new"));
        const Status made = file.makeFolder();
        return made.isOk() ? file.write() : made;
    }

    void startAnew() override { }

private:
    BuildPlan plan(const char *step) const
    {
        const QString name = QString::fromLatin1(step);
        return {u"Main"_s,
                folder,
                folder + u"/build/Main"_s,
                {{name, name, u"touch x"_s, {}, {folder + u"/x"_s}}}};
    }

    bool hasOldOne;
    QString folder;
};

class RecordWriter : public Writer
{
public:
    explicit RecordWriter(bool isRemoved) : removes(isRemoved) { }

    void prepare(const QString &working) override
    {
        folder = working;
        QDir().mkpath(folder + u"/build"_s);
        if (!record().write({output("old")}).isOk())
            qFatal("cannot write the first record");
    }

    Status write() override
    {
        return record().write(removes ? QList<MadeOutput>() : QList {output("old"), output("new")});
    }

    void startAnew() override { }

private:
    OutputRecord record() const { return {folder + u"/build"_s, folder}; }
    MadeOutput output(const char *name) const
    {
        return {folder + u'/' + QString::fromLatin1(name), u"Main"_s, u"1.0"_s};
    }

    bool removes;
    QString folder;
};

class BuildLogWriter : public Writer, private MorvalenCore::BuildListener
{
public:
    void prepare(const QString &working) override
    {
        plan.targetFolder = working;
        DesignsOnDisk::write(path(), "old\n");
    }

    Status write() override
    {
        said.clear();
        MorvalenCore::BuildOutput output(plan, {{path()}}, this);
        output.takeOutput("one\ntwo\n");
        output.finish();
        return said.isEmpty() ? Status() : Status::io(said);
    }

    void startAnew() override { }
    bool growsInPlace() const override { return true; }

private:
    void stepShown(int, int, int) override { }
    void allocationCame() override { }
    void line(MessageType type, const QString &text) override
    {
        if (type == Qtilities::Logging::Logger::Warning)
            said = text;
    }

    QString path() const { return plan.targetFolder + u"/build.log"_s; }

    BuildPlan plan;
    QString said;
};

// What Ninja remembers of two builds is gathered for one run.
class SharedLogWriter : public Writer
{
public:
    void prepare(const QString &working) override
    {
        plans.clear();
        for (const char *name : {"a", "b"}) {
            const QString target = working + u'/' + QString::fromLatin1(name);
            const QString output = target + u"/out"_s;
            plans.append(
                {u"Main"_s, working, target, {{u"s"_s, u"s"_s, u"touch x"_s, {}, {output}}}});
            DesignsOnDisk::write(target + u"/.ninja_log"_s,
                                 "# ninja log v5\n1\t2\t3\t" + output.toUtf8() + "\t4\n");
        }
    }

    Status write() override { return MorvalenCore::SharedLog(plans).gather(); }
    void startAnew() override { }

private:
    QList<BuildPlan> plans;
};

} // namespace

std::vector<WriterKind> buildWriters()
{
    return {{"build.ninja", [] { return std::make_unique<NinjaWriter>(false); }},
            {"first build.ninja", [] { return std::make_unique<NinjaWriter>(true); }},
            {"record", [] { return std::make_unique<RecordWriter>(false); }},
            {"record removal", [] { return std::make_unique<RecordWriter>(true); }},
            {"build log", [] { return std::make_unique<BuildLogWriter>(); }},
            {"shared log", [] { return std::make_unique<SharedLogWriter>(); }}};
}
