#include "commands/commandmanuals.h"
#include "commands/commands.h"
#include "commands/commandset.h"
#include "commands/manuals.h"
#include "interp/tcltext.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using commands::Command;

namespace {

const QDir source(QStringLiteral(SOURCE_DIR));

QString textOf(const QString &path)
{
    QFile file(source.filePath(path));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString pageOf(const Command &command)
{
    return textOf(u"docs/commands/"_s + QString::fromUtf8(command.word) + u".md"_s);
}

// The rows of the first table below a heading, as they are written.
QStringList tableBelow(const QString &page, const QString &heading)
{
    QStringList rows;
    const qsizetype start = page.indexOf(heading + u'\n');
    if (start < 0)
        return rows;
    for (const QString &line : page.sliced(start).split(u'\n')) {
        if (line.startsWith(u'|'))
            rows.append(line);
        else if (!rows.isEmpty())
            break;
    }
    return rows;
}

// The sentences among the text literals of the commands, adjacent literals joined, each value a *.
// Usage texts and the lines of the overview have tests of their own.
QSet<QString> sentencesOfSources()
{
    static const QRegularExpression literals(
        uR"re((?:\bu|QStringLiteral\()("(?:[^"\\]|\\.)*"(?:\s*"(?:[^"\\]|\\.)*")*))re"_s);
    static const QRegularExpression seam(uR"re((?<!\\)"\s*")re"_s);
    static const QRegularExpression value(u"%\\d"_s);
    QSet<QString> sentences;
    for (const QString &file : QDir(source.filePath(u"commands"_s)).entryList(QDir::Files)) {
        if (file == "overview.cpp"_L1 || file == "hostnames.cpp"_L1)
            continue;
        for (const QRegularExpressionMatch &match :
             literals.globalMatch(textOf(u"commands/"_s + file))) {
            QString text = match.captured(1).sliced(1).chopped(1);
            text.remove(seam).replace(u"\\\""_s, u"\""_s).replace(value, u"*"_s);
            if (text.count(u' ') > 1 && text.front().isUpper() && !text.contains(u"\\n"_s))
                sentences.insert(text);
        }
    }
    return sentences;
}

// The sentences that the tables of answers quote, each value a *.
QSet<QString> sentencesOfPages()
{
    static const QRegularExpression code(u"`([A-Z][^`]* [^`]* [^`]*)`"_s);
    static const QRegularExpression value(u"\"[A-Z]+\""_s);
    static const QRegularExpression item(
        uR"(property "\*" on (file|folder|design property) "\*")"_s);
    QSet<QString> sentences;
    for (const Command &command : commands::commandSet()) {
        for (const QString &row : tableBelow(pageOf(command), u"## Answers"_s)) {
            for (const QRegularExpressionMatch &match : code.globalMatch(row.section(u'|', 1, 1))) {
                QString text = match.captured(1);
                text.replace(value, u"\"*\""_s).replace(u"REASON"_s, u"*"_s);
                sentences.insert(text.replace(item, u"property \"*\" on * \"*\""_s));
            }
        }
    }
    return sentences;
}

// The comment above the table of the commands, and the paths that it names.
QString recipe()
{
    const QString text = textOf(u"commands/commandset.cpp"_s);
    const qsizetype start = text.indexOf(u"// To add a command:"_s);
    return start < 0 ? QString() : text.sliced(start, text.indexOf(u"constexpr"_s, start) - start);
}

QStringList pathsOfRecipe()
{
    static const QRegularExpression path(u"\\b[a-z]+/[\\w/.]*\\w"_s);
    QStringList paths;
    for (const QRegularExpressionMatch &match : path.globalMatch(recipe()))
        paths.append(match.captured());
    paths.removeDuplicates();
    return paths;
}

// A file that names all of these stands for a list of the commands: the words are like no others.
bool listsTheCommands(const QString &text)
{
    const auto namesAll = [&](std::initializer_list<QLatin1StringView> names) {
        return std::all_of(names.begin(), names.end(), [&](QLatin1StringView name) {
            return text.contains(QRegularExpression(u"\\b"_s + name + u"\\b"_s));
        });
    };
    return namesAll({"logp"_L1, "sfile"_L1, "sfolder"_L1, "sproperty"_L1})
        || namesAll({"CallFile"_L1, "CallFolder"_L1, "CallProperty"_L1, "CallQuit"_L1});
}

// The files of the project, without what was built and what Git keeps.
QStringList projectFiles()
{
    QStringList files;
    for (const QString &folder : source.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (folder == "build"_L1)
            continue;
        QDirIterator walk(source.filePath(folder), QDir::Files, QDirIterator::Subdirectories);
        while (walk.hasNext())
            files.append(source.relativeFilePath(walk.next()));
    }
    return files + source.entryList(QDir::Files);
}

// In order, one a line.
QString lines(const QSet<QString> &sentences)
{
    QStringList sorted(sentences.begin(), sentences.end());
    sorted.sort();
    return sorted.join(u'\n');
}

} // namespace

// Keeps the recipe above the table of commands true.
class tst_CommandSet : public QObject
{
    Q_OBJECT

    static void addCommands()
    {
        QTest::addColumn<int>("index");
        int index = 0;
        for (const Command &command : commands::commandSet())
            QTest::newRow(command.word) << index++;
    }

    static void addManuals()
    {
        QTest::addColumn<int>("index");
        int index = -1;
        for (const Command &command : commands::commandSet()) {
            ++index;
            if (command.manual)
                QTest::newRow(command.word) << index;
        }
    }

private Q_SLOTS:
    void theTableReadsAsUsersKnowIt()
    {
        struct Expected
        {
            const char *word;
            commandsManager::CommandProc procedure;
            const char *help;
        };
        const Expected expected[] = {
            {"log", LogQtiMessage, "Logs a system wide message"},
            {"logp", LogQtiPriorityMessage, "Logs a priority message"},
            {"overview", CallOverview, "Provides an overview of current application status."},
            {"project", CallProject, "Operations to control projects"},
            {"designs", CallDesigns, "Operations on open designs."},
            {"design", CallDesign, "Operations on the active design."},
            {"files", CallFiles, "Operations on files in the active design."},
            {"sfile", CallFile, "Operations on the active file in the active design."},
            {"folders", CallFolders, "Operations on folders in the active design."},
            {"sfolder", CallFolder, "Operations on the active folder in the active design."},
            {"properties", CallProperties, "Operations on design parameters in the active design."},
            {"sproperty", CallProperty,
             "Operations on the active design parameters in the active design."},
            {"builds", CallBuilds, "Operations on build configurations in the active design."},
            {"build", CallBuild,
             "Operations on the active build configuration in the active design."},
            {"quit", CallQuit, "Quit"},
        };
        const auto rows = commands::commandSet();
        QCOMPARE(rows.size(), std::size(expected));
        for (std::size_t i = 0; i < rows.size(); ++i) {
            QCOMPARE(rows[i].word, expected[i].word);
            QCOMPARE(rows[i].help, expected[i].help);
            QVERIFY2(rows[i].procedure == expected[i].procedure, rows[i].word);
        }
    }

    void everyCommandIsRegisteredWithItsHelp()
    {
        commandsManager *registry = commandsManager::getInstance(nullptr);
        commands::registerCommandSet(*registry);
        QCOMPARE(Tcl_Eval(registry->interp, "help"), TCL_OK);
        const QString listing = tcltext::result(registry->interp);
        for (const Command &command : commands::commandSet()) {
            Tcl_CmdInfo info;
            QVERIFY2(Tcl_GetCommandInfo(registry->interp, command.word, &info), command.word);
            const QRegularExpression line(
                u"^"_s + QString::fromUtf8(command.word) + u" *: *"_s
                    + QRegularExpression::escape(QString::fromUtf8(command.help)) + u"$"_s,
                QRegularExpression::MultilineOption);
            QVERIFY2(listing.contains(line), qPrintable(listing));
        }
        delete registry;
    }

    void everyPathOfTheRecipeIsThere_data() { addCommands(); }
    void everyPathOfTheRecipeIsThere()
    {
        QFETCH(const int, index);
        const QString word = QString::fromUtf8(commands::commandSet()[std::size_t(index)].word);
        const QStringList paths = pathsOfRecipe();
        QVERIFY(paths.size() > 10);
        for (QString path : paths)
            QVERIFY2(source.exists(path.replace(u"WORD"_s, word)), qPrintable(path));
    }

    void everyListOfTheCommandsIsInTheRecipe()
    {
        const QStringList named = pathsOfRecipe();
        QStringList forgotten;
        for (const QString &file : projectFiles()) {
            if (!named.contains(file) && listsTheCommands(textOf(file)))
                forgotten.append(file);
        }
        QCOMPARE(forgotten.join(u'\n'), QString());
    }

    void everyPageIsInTheWindowsManual_data() { addCommands(); }
    void everyPageIsInTheWindowsManual()
    {
        QFETCH(const int, index);
        const QString page =
            QString::fromUtf8(commands::commandSet()[std::size_t(index)].word) + u".md"_s;
        QVERIFY(textOf(u"app/morvalen.qrc"_s)
                    .contains(u"<file alias=\"%1\">../docs/commands/%1</file>"_s.arg(page)));
    }

    void everyCommandHasATest_data() { addCommands(); }
    void everyCommandHasATest()
    {
        QFETCH(const int, index);
        const QString name =
            u"tst_"_s + QString::fromUtf8(commands::commandSet()[std::size_t(index)].word);
        QVERIFY(source.exists(u"tests/commands/"_s + name + u".cpp"_s));
        static const QRegularExpression listed(u"(?<=^        |^morvalen_test\\()tst_\\w+"_s,
                                               QRegularExpression::MultilineOption);
        QStringList tests;
        for (const auto &match : listed.globalMatch(textOf(u"tests/commands/CMakeLists.txt"_s)))
            tests << match.captured();
        QVERIFY(tests.contains(name));
    }

    void everyPageStartsWithTheHelp_data() { addCommands(); }
    void everyPageStartsWithTheHelp()
    {
        QFETCH(const int, index);
        const Command &command = commands::commandSet()[std::size_t(index)];
        const QString start = u"# "_s + QString::fromUtf8(command.word) + u"\n\n"_s
            + QString::fromUtf8(command.help) + u"\n\n"_s;
        QCOMPARE(pageOf(command).first(qMin(start.size(), pageOf(command).size())), start);
    }

    void everyPageHasTheUsage_data() { addManuals(); }
    void everyPageHasTheUsage()
    {
        QFETCH(const int, index);
        const Command &command = commands::commandSet()[std::size_t(index)];
        QMap<QString, QString> usage;
        for (const commands::UsageRow &row : command.manual->usage)
            usage.insert(QString::fromUtf8(row.key), QString::fromUtf8(row.help));
        QStringList expected = {u"| Call | Does |"_s, u"|---|---|"_s};
        for (auto row = usage.cbegin(); row != usage.cend(); ++row)
            expected.append(u"| `"_s + row.key() + u"` | "_s + row.value() + u" |"_s);
        QCOMPARE(tableBelow(pageOf(command), u"## Usage"_s), expected);
    }

    void everyPageNamesEveryForm_data() { addManuals(); }
    void everyPageNamesEveryForm()
    {
        QFETCH(const int, index);
        const Command &command = commands::commandSet()[std::size_t(index)];
        const QString page = pageOf(command);
        for (const QString &form : command.manual->forms())
            QVERIFY2(page.contains(QRegularExpression(u"`"_s + form + u"[` ]"_s)),
                     qPrintable(form));
    }

    // A key of a usage text starts with a form that a table understands.
    void everyKeyIsUnderstood_data() { addManuals(); }
    void everyKeyIsUnderstood()
    {
        QFETCH(const int, index);
        const Command &command = commands::commandSet()[std::size_t(index)];
        const QStringList forms = command.manual->forms();
        for (const commands::UsageRow &row : command.manual->usage) {
            const QString key = QString::fromUtf8(row.key) + u' ';
            const bool understood =
                std::any_of(forms.begin(), forms.end(),
                            [&](const QString &form) { return key.startsWith(form + u' '); });
            QVERIFY2(understood, row.key);
        }
    }

    void thePagesQuoteEveryAnswerAndNoOther()
    {
        const QSet<QString> sources = sentencesOfSources();
        const QSet<QString> pages = sentencesOfPages();
        QVERIFY(sources.size() > 100);
        QCOMPARE(lines(pages - sources), QString());
        QCOMPARE(lines(sources - pages), QString());
    }

    void theIndexListsThePagesInOrder()
    {
        QStringList expected = {u"| Command | Help |"_s, u"|---|---|"_s};
        for (const Command &command : commands::commandSet()) {
            const QString word = QString::fromUtf8(command.word);
            expected.append(u"| ["_s + word + u"]("_s + word + u".md) | "_s
                            + QString::fromUtf8(command.help) + u" |"_s);
        }
        QCOMPARE(tableBelow(textOf(u"docs/commands/README.md"_s), u"# Commands"_s), expected);
    }

    void noPageIsLeftOver()
    {
        QStringList expected = {u"README.md"_s};
        for (const Command &command : commands::commandSet())
            expected.append(QString::fromUtf8(command.word) + u".md"_s);
        expected.sort();
        QCOMPARE(QDir(source.filePath(u"docs/commands"_s)).entryList(QDir::Files, QDir::Name),
                 expected);
    }

    void everyLinkBetweenPagesLeadsSomewhere()
    {
        static const QRegularExpression link(uR"re(\]\(([^)#:]+)\))re"_s);
        const QDir pages(source.filePath(u"docs/commands"_s));
        for (const QString &page : pages.entryList(QDir::Files)) {
            for (const QRegularExpressionMatch &match :
                 link.globalMatch(textOf(u"docs/commands/"_s + page)))
                QVERIFY2(pages.exists(match.captured(1)),
                         qPrintable(page + u": "_s + match.captured(1)));
        }
    }

    void nextWords_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<QStringList>("next");
        QTest::newRow("next-first-1")
            << QStringList {u"design"_s}
            << QStringList({u"get"_s, u"set"_s, u"close"_s, u"proc_cycle"_s, u"save"_s, u"clean"_s,
                            u"assign_physical_wfp"_s});
        QTest::newRow("next-second-1")
            << QStringList({u"design"_s, u"get"_s})
            << QStringList({u"name"_s, u"description"_s, u"id"_s, u"vendor"_s, u"library"_s,
                            u"author"_s, u"version"_s, u"wfp"_s, u"busy"_s, u"read_only"_s});
        QTest::newRow("next-second-2 the last word")
            << QStringList({u"design"_s, u"close"_s}) << QStringList();
        QTest::newRow("next-none-1 no subcommands") << QStringList {u"log"_s} << QStringList();
        QTest::newRow("next-none-2 no such command") << QStringList {u"desig"_s} << QStringList();
        QTest::newRow("next-none-3 no such subcommand")
            << QStringList({u"design"_s, u"ge"_s}) << QStringList();
        QTest::newRow("next-none-4 nothing") << QStringList() << QStringList();
    }

    void nextWords()
    {
        QFETCH(const QStringList, words);
        QTEST(commands::nextWords(words), "next");
    }
};

TEST_CLASS(tst_CommandSet)
#include "tst_CommandSet.moc"
