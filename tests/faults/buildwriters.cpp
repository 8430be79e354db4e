// What builds write in their target folders.

#include "build/NinjaFile.h"
#include "build/OutputRecord.h"
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
    bool givesReasons() const override { return false; }

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
    bool givesReasons() const override { return !removes; }

private:
    OutputRecord record() const { return {folder + u"/build"_s, folder}; }
    MadeOutput output(const char *name) const
    {
        return {folder + u'/' + QString::fromLatin1(name), u"Main"_s, u"1.0"_s};
    }

    bool removes;
    QString folder;
};

} // namespace

std::vector<WriterKind> buildWriters()
{
    return {{"build.ninja", [] { return std::make_unique<NinjaWriter>(false); }},
            {"first build.ninja", [] { return std::make_unique<NinjaWriter>(true); }},
            {"record", [] { return std::make_unique<RecordWriter>(false); }},
            {"record removal", [] { return std::make_unique<RecordWriter>(true); }}};
}
