#include "build/StepStatements.h"

#include "build/ninjatext.h"
#include "build/shell.h"

#include <QCryptographicHash>

namespace MorvalenCore {

namespace {

// Beyond this many bytes a command does not fit into one argument of the shell (131,072 bytes on
// Linux) and is read from a file.
constexpr qsizetype longestArgument = 100'000;

// Ninja hands steps of the pool "console" a pipe by whose end it sees that they have ended; what
// they leave running is not to keep it open.
const char closing[] = "closing@ = $ 3>&- 4>&- 5>&- 6>&- 7>&-; exit\n";

const char rulesOfScope[] = "\n"
                            "rule step@\n"
                            "  command = cd $folder@ || exit; $line$alone\n"
                            "  description = $label\n"
                            "  restat = 1\n"
                            "\n"
                            "rule long_step@\n"
                            "  command = /bin/sh $here@/$script$alone\n"
                            "  description = $label\n"
                            "  restat = 1\n"
                            "  rspfile = $target@/$script\n"
                            "  rspfile_content = cd $folder@ || exit; $line\n";

QByteArray in(const QByteArray &scope, const char *text)
{
    return QByteArray(text).replace('@', scope);
}

// Writes the statements, and keeps track of what a step has to wait for although no file says so.
class Statements
{
public:
    explicit Statements(const QByteArray &ofPlan) : scope(ofPlan), id("$id" + ofPlan) { }

    QByteArray next(const PlannedStep &step)
    {
        text.clear();
        ++number;
        const bool always = step.outputs.isEmpty();
        if (always || step.inputs.isEmpty())
            gatherPending();
        const QByteArray self = "step-" + QByteArray::number(number) + ".always." + id;
        const QByteArray before = always || step.inputs.isEmpty() ? gate : barrier;

        text += "\nbuild";
        for (const QString &output : step.outputs)
            appendNinjaPath(&(text += ' '), output);
        if (always)
            text += ' ' + self;
        const bool fromFile = isTooLong(step.command);
        text += (fromFile ? ": long_step" : ": step") + scope;
        for (const QString &input : step.inputs)
            appendNinjaPath(&(text += ' '), input);
        if (!before.isEmpty())
            text += " || " + before;
        appendBindings(step, always, fromFile);

        if (always)
            barrier = gate = self;
        else
            pending.append(step.outputs.first());
        return text;
    }

private:
    static bool isTooLong(const QString &command)
    {
        return command.size() > longestArgument / 3 && command.toUtf8().size() > longestArgument;
    }

    void appendBindings(const PlannedStep &step, bool always, bool fromFile)
    {
        text += "\n  label = ${of" + scope + '}';
        appendNinjaValue(&text, step.label);
        text += "\n  line = ";
        appendNinjaValue(&text, always && !fromFile ? asOneProgram(step.command) : step.command);
        if (fromFile)
            text += "\n  script = step-" + QByteArray::number(number) + ".sh";
        const QByteArray pool = step.pool.isEmpty() ? QByteArray() : ninjaPool(step.pool);
        if (always)
            text += "\n  pool = ${alone_in" + pool + "}\n  alone = $closing" + scope;
        else if (!pool.isEmpty())
            text += "\n  pool = " + pool;
        text += '\n';
    }

    // One name for all steps so far.
    void gatherPending()
    {
        if (pending.isEmpty())
            return;
        const QByteArray name = "before-" + QByteArray::number(number) + '.' + id;
        text += "\nbuild " + name + ": phony";
        for (const QString &output : std::as_const(pending))
            appendNinjaPath(&(text += ' '), output);
        if (!gate.isEmpty())
            text += ' ' + gate;
        text += '\n';
        pending.clear();
        gate = name;
    }

    const QByteArray scope;
    const QByteArray id;
    QByteArray text;
    int number = 0;
    // The last step without outputs: all behind it wait for it.
    QByteArray barrier;
    // Stands for all steps so far but the pending ones.
    QByteArray gate;
    QStringList pending;
};

} // namespace

StepStatements::StepStatements(const BuildPlan &plan, const QByteArray &scope)
{
    const QString &folder = plan.targetFolder;
    rules = "target" + scope + " = ";
    appendNinjaValue(&rules, folder);
    // For names that are no files.
    rules += "\nid" + scope + " = "
        + QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    rules += "\nhere" + scope + " = ";
    appendNinjaValue(&rules, shellWord(folder));
    rules += "\nfolder" + scope + " = ";
    appendNinjaValue(&rules, shellWord(plan.workingFolder));
    rules += '\n' + in(scope, closing) + in(scope, rulesOfScope);
    Statements all(scope);
    statements.reserve(plan.steps.size());
    for (const PlannedStep &step : plan.steps)
        statements.append(all.next(step));
}

} // namespace MorvalenCore
