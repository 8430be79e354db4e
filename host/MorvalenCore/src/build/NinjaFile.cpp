#include "build/NinjaFile.h"

#include "build/ninjatext.h"
#include "build/shell.h"

#include <Qtilities/atomicfile.h>
#include <Qtilities/regularfile.h>

#include <QDir>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// Beyond this many bytes a command does not fit into one argument of the shell (131,072 bytes on
// Linux) and is read from a file.
constexpr qsizetype longestArgument = 100'000;

const char firstLine[] = "# Written by Morvalen; changes are overwritten.\n";

// Ninja hands steps of the pool "console" a pipe by whose end it sees that they have ended; what
// they leave running is not to keep it open.
const char closing[] = "closing = $ 3>&- 4>&- 5>&- 6>&- 7>&-; exit\n";

const char rules[] = "\n"
                     "rule step\n"
                     "  command = cd $folder || exit; $line$alone\n"
                     "  description = $label\n"
                     "  restat = 1\n"
                     "\n"
                     "rule long_step\n"
                     "  command = /bin/sh $script$alone\n"
                     "  description = $label\n"
                     "  restat = 1\n"
                     "  rspfile = $script\n"
                     "  rspfile_content = cd $folder || exit; $line\n";

// Writes the statements, and keeps track of what a step has to wait for although no file says so.
class Statements
{
public:
    explicit Statements(QByteArray *target) : text(*target) { }

    // Ninja's names of pools are words; those of the settings are anything.
    void addPools(const QMap<QString, int> &pools)
    {
        for (auto pool = pools.cbegin(); pool != pools.cend(); ++pool) {
            const QByteArray name = "pool-" + QByteArray::number(poolNames.size() + 1);
            poolNames.insert(pool.key(), name);
            text += "\npool " + name + "\n  depth = " + QByteArray::number(*pool) + '\n';
        }
    }

    void add(const PlannedStep &step)
    {
        ++number;
        const bool always = step.outputs.isEmpty();
        if (always || step.inputs.isEmpty())
            gatherPending();
        const QByteArray self = "step-" + QByteArray::number(number) + ".always";
        const QByteArray before = always || step.inputs.isEmpty() ? gate : barrier;

        text += "\nbuild";
        for (const QString &output : step.outputs)
            appendNinjaPath(&(text += ' '), output);
        if (always)
            text += ' ' + self;
        const bool fromFile = isTooLong(step.command);
        text += fromFile ? ": long_step" : ": step";
        for (const QString &input : step.inputs)
            appendNinjaPath(&(text += ' '), input);
        if (!before.isEmpty())
            text += " || " + before;
        appendBindings(step, always, fromFile);

        if (always)
            barrier = gate = self;
        else
            pending.append(step.outputs.first());
    }

private:
    static bool isTooLong(const QString &command)
    {
        return command.size() > longestArgument / 3 && command.toUtf8().size() > longestArgument;
    }

    void appendBindings(const PlannedStep &step, bool always, bool fromFile)
    {
        text += "\n  label = ";
        appendNinjaValue(&text, step.label);
        text += "\n  line = ";
        appendNinjaValue(&text, always && !fromFile ? asOneProgram(step.command) : step.command);
        if (fromFile)
            text += "\n  script = step-" + QByteArray::number(number) + ".sh";
        if (always)
            text += "\n  pool = console\n  alone = $closing";
        else if (!step.pool.isEmpty())
            text += "\n  pool = " + poolNames.value(step.pool);
        text += '\n';
    }

    // One name for all steps so far.
    void gatherPending()
    {
        if (pending.isEmpty())
            return;
        const QByteArray next = "before-" + QByteArray::number(number);
        text += "\nbuild " + next + ": phony";
        for (const QString &output : std::as_const(pending))
            appendNinjaPath(&(text += ' '), output);
        if (!gate.isEmpty())
            text += ' ' + gate;
        text += '\n';
        pending.clear();
        gate = next;
    }

    QByteArray &text;
    QHash<QString, QByteArray> poolNames;
    int number = 0;
    // The last step without outputs: all behind it wait for it.
    QByteArray barrier;
    // Stands for all steps so far but the pending ones.
    QByteArray gate;
    QStringList pending;
};

} // namespace

NinjaFile::NinjaFile(const BuildPlan &plan) : folder(plan.targetFolder)
{
    content.reserve(200 * plan.steps.size() + 1000);
    content += firstLine;
    content += "ninja_required_version = 1.8\n"
               "pipe = |\n"
               "folder = ";
    appendNinjaValue(&content, shellWord(plan.workingFolder));
    content += '\n';
    content += closing;
    content += rules;
    Statements statements(&content);
    statements.addPools(plan.pools);
    for (const PlannedStep &step : plan.steps)
        statements.add(step);
}

QString NinjaFile::path() const { return folder + u"/build.ninja"_s; }

Status NinjaFile::makeFolder() const
{
    if (!QDir().mkpath(folder))
        return Status::io(u"The target path \"%1\" cannot be made"_s.arg(folder));
    return {};
}

bool NinjaFile::liesIn(const QString &folder)
{
    const QString path = folder + u"/build.ninja"_s;
    const Result<QByteArray> head = Qtilities::Core::readRegularFile(path, sizeof(firstLine) - 1);
    return !QFileInfo(path).isSymLink() && head.isOk() && head.value() == firstLine;
}

// The folder may have come with the design from anywhere: a link there would be followed to files
// that are no part of it, and a pipe waited for.
Status NinjaFile::checkFolder() const
{
    const QStringList names {u"build.ninja"_s, u"build.log"_s, u".ninja*"_s, u".morvalen_*"_s,
                             u"step-*.sh"_s};
    const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::CaseSensitive;
    for (const QFileInfo &info : QDir(folder).entryInfoList(names, all)) {
        if (info.isSymLink() || !info.isFile())
            return Status::conflict(
                u"\"%1\" is not a regular file; nothing is built there"_s.arg(info.filePath()));
    }
    return {};
}

Status NinjaFile::write() const
{
    if (const Status status = checkFolder(); !status.isOk())
        return status;
    const Result<QByteArray> old = Qtilities::Core::readRegularFile(path());
    if (old.isOk() && old.value() == content)
        return {};
    if (old.isOk() && !old.value().isEmpty() && !old.value().startsWith(firstLine))
        return Status::conflict(
            u"\"%1\" is not a file of Morvalen's; choose another target path"_s.arg(path()));
    return Qtilities::Core::writeFileAtomically(path(), content);
}

} // namespace MorvalenCore
