#include "build/NinjaFile.h"

#include "build/ninjatext.h"
#include "build/shell.h"

#include <Qtilities/atomicfile.h>
#include <Qtilities/regularfile.h>

#include <QCryptographicHash>
#include <QDir>

#include <cerrno>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// Beyond this many bytes a command does not fit into one argument of the shell (131,072 bytes on
// Linux) and is read from a file.
constexpr qsizetype longestArgument = 100'000;

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
                     "  command = /bin/sh $here/$script$alone\n"
                     "  description = $label\n"
                     "  restat = 1\n"
                     "  rspfile = $target/$script\n"
                     "  rspfile_content = cd $folder || exit; $line\n";

// Writes the statements, and keeps track of what a step has to wait for although no file says so.
class Statements
{
public:
    explicit Statements(QByteArray *target) : text(*target) { }

    void add(const PlannedStep &step)
    {
        ++number;
        const bool always = step.outputs.isEmpty();
        if (always || step.inputs.isEmpty())
            gatherPending();
        const QByteArray self = "step-" + QByteArray::number(number) + ".always.$id";
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
        text += "\n  label = ${of}";
        appendNinjaValue(&text, step.label);
        text += "\n  line = ";
        appendNinjaValue(&text, always && !fromFile ? asOneProgram(step.command) : step.command);
        if (fromFile)
            text += "\n  script = step-" + QByteArray::number(number) + ".sh";
        const QByteArray pool = step.pool.isEmpty() ? QByteArray() : ninjaPool(step.pool);
        if (always)
            text += "\n  pool = ${alone_in" + pool + "}\n  alone = $closing";
        else if (!pool.isEmpty())
            text += "\n  pool = " + pool;
        text += '\n';
    }

    // One name for all steps so far.
    void gatherPending()
    {
        if (pending.isEmpty())
            return;
        const QByteArray next = "before-" + QByteArray::number(number) + ".$id";
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
    content = firstLine();
    content += "ninja_required_version = 1.8\nalone_in = console\n";
    for (auto pool = plan.pools.cbegin(); pool != plan.pools.cend(); ++pool) {
        appendNinjaPool(&content, pool.key(), *pool);
        content += "alone_in" + ninjaPool(pool.key()) + " = console\n";
    }
    content += "\ninclude steps.ninja\n";

    stepsContent.reserve(200 * plan.steps.size() + 1000);
    stepsContent = firstLine();
    stepsContent += "pipe = |\ntarget = ";
    appendNinjaValue(&stepsContent, folder);
    // For names that are no files.
    stepsContent += "\nid = "
        + QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    stepsContent += "\nhere = ";
    appendNinjaValue(&stepsContent, shellWord(folder));
    stepsContent += "\nfolder = ";
    appendNinjaValue(&stepsContent, shellWord(plan.workingFolder));
    stepsContent += '\n';
    stepsContent += closing;
    stepsContent += rules;
    Statements statements(&stepsContent);
    for (const PlannedStep &step : plan.steps)
        statements.add(step);
}

QByteArray NinjaFile::firstLine() { return "# Written by Morvalen; changes are overwritten.\n"; }

QString NinjaFile::path() const { return folder + u"/build.ninja"_s; }

QString NinjaFile::stepsPath() const { return folder + u"/steps.ninja"_s; }

Status NinjaFile::makeFolder() const
{
    if (!QDir().mkpath(folder))
        return Status::io(
            u"The target path \"%1\" cannot be made: %2"_s.arg(folder, qt_error_string(errno)));
    return {};
}

bool NinjaFile::liesIn(const QString &folder)
{
    const QString path = folder + u"/build.ninja"_s;
    const Result<QByteArray> head = Qtilities::Core::readRegularFile(path, firstLine().size());
    return !QFileInfo(path).isSymLink() && head.isOk() && head.value() == firstLine();
}

// The folder may have come with the design from anywhere: a link there would be followed to files
// that are no part of it, and a pipe waited for.
Status NinjaFile::checkFolder() const
{
    const QStringList names {u"build.ninja"_s, u"steps.ninja"_s, u"joint.ninja"_s, u"build.log"_s,
                             u".ninja*"_s,     u".morvalen_*"_s, u"step-*.sh"_s};
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
    Status status = checkFolder();
    if (status.isOk())
        status = writeOwn(path(), content);
    return status.isOk() ? writeOwn(stepsPath(), stepsContent) : status;
}

Status NinjaFile::writeOwn(const QString &path, const QByteArray &content)
{
    const Result<QByteArray> old = Qtilities::Core::readRegularFile(path);
    if (old.isOk() && old.value() == content)
        return {};
    if (old.isOk() && !old.value().isEmpty() && !old.value().startsWith(firstLine()))
        return Status::conflict(
            u"\"%1\" is not a file of Morvalen's; choose another target path"_s.arg(path));
    return Qtilities::Core::writeFileAtomically(path, content);
}

} // namespace MorvalenCore
