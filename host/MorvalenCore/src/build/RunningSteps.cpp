#include "build/RunningSteps.h"

#include <QFile>
#include <QProcess>
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

// The words of a simple command, up to where the shell does something by itself.
QStringList plainWords(const QString &command)
{
    static const QRegularExpression special(u"^[0-9]*[<>|&;]"_s);
    QStringList words = QProcess::splitCommand(command);
    const auto end = std::find_if(words.begin(), words.end(), [](const QString &word) {
        return special.match(word).hasMatch();
    });
    words.erase(end, words.end());
    return words;
}

} // namespace

int RunningSteps::stepOf(const QStringList &words) const
{
    const bool isShell = words.size() > 2 && words[1] == u"-c"_s;
    for (int index = 0; index < plan.steps.size(); ++index) {
        const QString &command = plan.steps[index].command;
        if (isShell) {
            if (words[2].contains(u"exit; "_s + command))
                return index;
            continue;
        }
        // A shell gives a simple command its own place.
        const QStringList plain = plainWords(command);
        if (!plain.isEmpty() && words.size() >= plain.size()
            && words.last(plain.size()) == plain)
            return index;
        if (words.value(1).endsWith(u"/step-%1.sh"_s.arg(index + 1)))
            return index;
    }
    return -1;
}

QList<RunningSteps::Step> RunningSteps::below(pid_t process) const
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
