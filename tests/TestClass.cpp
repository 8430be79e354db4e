#include "tests/TestClass.h"

#include <QFileInfo>
#include <QStringList>

#include <cstdio>
#include <map>
#include <string>

using namespace Qt::Literals::StringLiterals;

namespace {

std::map<QString, TestClass::Run> &classes()
{
    static std::map<QString, TestClass::Run> all;
    return all;
}

QStringList &registeredTwice()
{
    static QStringList names;
    return names;
}

QStringList registeredNames()
{
    QStringList names;
    for (const auto &[name, run] : classes())
        names << name;
    return names;
}

void print(FILE *stream, const QString &line) { std::fprintf(stream, "%s\n", qPrintable(line)); }

// A list of the program's classes is right when each is named once and none is missing.
int compare(const QString &program, const QStringList &expected)
{
    QStringList wrong;
    for (const QString &name : expected) {
        if (!classes().contains(name))
            wrong << name + u" has an entry, but no class"_s;
    }
    for (const QString &name : registeredNames()) {
        if (!expected.contains(name))
            wrong << name + u" has no entry"_s;
    }
    for (const QString &name : registeredTwice())
        wrong << name + u" is the name of two classes"_s;
    for (const QString &line : wrong)
        print(stderr, program + u": "_s + line);
    return wrong.isEmpty() ? 0 : 1;
}

int refuse(const QString &program, const QString &name)
{
    if (!name.isEmpty())
        print(stderr, program + u": no test class is named "_s + name);
    print(stderr,
          u"usage: "_s + program + u" CLASS [FUNCTION[:ROW]]...\n       "_s + program
              + u" --list\n       "_s + program + u" --compare CLASS..."_s);
    return 2;
}

// The class runs as if it were a program of its own, with its own name for settings and folders.
int run(const QString &program, int argc, char **argv)
{
    const QString name = QString::fromUtf8(argv[1]);
    const auto found = classes().find(name);
    if (found == classes().end())
        return refuse(program, name);
    static std::string path =
        qPrintable(QFileInfo(QString::fromUtf8(argv[0])).path() + u'/' + name);
    argv[1] = path.data();
    return found->second(argc - 1, argv + 1);
}

} // namespace

TestClass::TestClass(const char *name, Run run)
{
    if (!classes().emplace(QString::fromUtf8(name), run).second)
        registeredTwice() << QString::fromUtf8(name);
}

int main(int argc, char **argv)
{
    const QString program = QFileInfo(QString::fromUtf8(argv[0])).fileName();
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromUtf8(argv[i]);
    if (arguments.isEmpty())
        return refuse(program, QString());
    if (arguments[0] == u"--list"_s) {
        print(stdout, registeredNames().join(u'\n'));
        return 0;
    }
    if (arguments[0] == u"--compare"_s)
        return compare(program, arguments.mid(1));
    return run(program, argc, argv);
}
