#include "build/RunningSteps.h"

#include "build/shell.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

QByteArray ofProcess(pid_t process, const QString &name)
{
    QFile file(u"/proc/%1/%2"_s.arg(process).arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QList<pid_t> childrenOf(pid_t process)
{
    QList<pid_t> children;
    for (const QByteArray &word :
         ofProcess(process, u"task/%1/children"_s.arg(process)).simplified().split(' ')) {
        if (!word.isEmpty())
            children.append(word.toInt());
    }
    return children;
}

QStringList wordsOf(pid_t process)
{
    QStringList words = QString::fromUtf8(ofProcess(process, u"cmdline"_s)).split(QChar(u'\0'));
    words.removeLast();
    return words;
}

// Behind the name, which may hold anything, the fields are numbers.
qint64 millisecondsOf(pid_t process)
{
    constexpr int startTimeField = 19;
    const QByteArray stat = ofProcess(process, u"stat"_s);
    const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    QFile upTime(u"/proc/uptime"_s);
    if (fields.size() <= startTimeField || !upTime.open(QIODevice::ReadOnly))
        return 0;
    const double now = upTime.readAll().split(' ').first().toDouble();
    const double start = fields[startTimeField].toDouble() / double(sysconf(_SC_CLK_TCK));
    return std::max(qint64(0), qint64((now - start) * 1000));
}

bool isNinja(pid_t process)
{
    const QByteArray name = ofProcess(process, u"comm"_s).trimmed();
    return name == "ninja" || name == "ninja-build";
}

// The words of a simple command as its program gets them; none where the shell would expand them.
class PlainWords
{
public:
    QStringList of(const QString &command)
    {
        for (qsizetype at = 0; at < command.size() && !isOver; ++at) {
            if (command[at] == u'\\' && quote != u'\'' && at + 1 < command.size())
                append(command[++at]);
            else
                take(command[at]);
        }
        end();
        return words;
    }

private:
    void take(QChar c)
    {
        if (quote.isNull() ? c == u'"' || c == u'\'' : c == quote) {
            quote = quote.isNull() ? c : QChar();
            isWord = true;
        } else if (c == u'$' && quote != u'\'') {
            words.clear();
            isWord = false;
            isOver = true;
        } else if (!quote.isNull()) {
            append(c);
        } else if (c.isSpace()) {
            end();
        } else if (QStringView(u"<>|&;()`").contains(c)) {
            // The number of a stream, as in 2>, is no word.
            isWord = isWord && (word.toInt() == 0 || (c != u'<' && c != u'>'));
            isOver = true;
        } else {
            append(c);
        }
    }

    void append(QChar c)
    {
        word += c;
        isWord = true;
    }

    void end()
    {
        if (isWord)
            words.append(word);
        word.clear();
        isWord = false;
    }

    QStringList words;
    QString word;
    QChar quote;
    bool isWord = false;
    bool isOver = false;
};

} // namespace

// Both forms of a step are looked up, so that thousands of steps cost a look as much as few do.
void RunningSteps::gather()
{
    if (!lines.isEmpty())
        return;
    for (int index = 0; index < plan.steps.size(); ++index) {
        const PlannedStep &step = plan.steps[index];
        const QString line = step.outputs.isEmpty() ? asOneProgram(step.command) : step.command;
        if (!lines.contains(line))
            lines.insert(line, index);
        const QStringList plain = PlainWords().of(step.command);
        if (!plain.isEmpty() && !programs.contains(plain))
            programs.insert(plain, index);
    }
}

int RunningSteps::stepOf(const QStringList &words)
{
    gather();
    if (words.size() > 2 && words[1] == u"-c"_s) {
        if (const int index = lineOf(words[2]); index >= 0)
            return index;
    }
    static const QRegularExpression script(u"/step-([0-9]+)\\.sh$"_s);
    if (const auto match = script.match(words.value(1)); match.hasMatch()) {
        const int number = match.captured(1).toInt();
        return number <= plan.steps.size() ? number - 1 : -1;
    }
    // A shell gives a simple command its own place; a script has its interpreter in front.
    constexpr qsizetype mostInFront = 3;
    for (qsizetype first = 0; first < std::min(words.size(), mostInFront); ++first) {
        if (const auto found = programs.constFind(words.mid(first)); found != programs.constEnd())
            return *found;
    }
    return -1;
}

// What stands between the change of folder and what closes a step that runs alone.
int RunningSteps::lineOf(const QString &script) const
{
    constexpr QLatin1StringView before("|| exit; ");
    const qsizetype begin = script.indexOf(before);
    if (begin < 0)
        return -1;
    const QString line = script.mid(begin + before.size());
    const int index = lines.value(line, -1);
    return index >= 0 ? index : lines.value(line.left(line.lastIndexOf(u" 3>&-"_s)), -1);
}

QList<RunningSteps::Step> RunningSteps::below(pid_t process)
{
    QList<Step> steps;
    QList<pid_t> waiting {process};
    while (!waiting.isEmpty()) {
        const pid_t at = waiting.takeLast();
        for (const pid_t child : childrenOf(at)) {
            if (!isNinja(at)) {
                waiting.append(child);
                continue;
            }
            const int index = stepOf(wordsOf(child));
            if (index >= 0)
                steps.append({index, millisecondsOf(child)});
        }
    }
    std::sort(steps.begin(), steps.end(),
              [](const Step &a, const Step &b) { return a.index < b.index; });
    return steps;
}

} // namespace MorvalenCore
