#include "ensemble/manuals.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using ensemble::Manual;
using ensemble::manuals;

namespace {

const QDir pages(QStringLiteral(SOURCE_DIR "/docs/ensemble"));

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString pageOf(const Manual &manual)
{
    return textOf(pages.filePath(u"morvalen-%1.md"_s.arg(manual.word)));
}

QString cell(QString text) { return text.replace(u'|', u"\\|"_s); }

} // namespace

// Keeps the recipe above the table of subcommands true.
class tst_EnsemblePages : public QObject
{
    Q_OBJECT

    static void addManuals()
    {
        QTest::addColumn<int>("index");
        for (int index = 0; const Manual &manual : manuals())
            QTest::newRow(qPrintable(manual.word)) << index++;
    }

private Q_SLOTS:
    void everyPageStartsWithWhatItDoes_data() { addManuals(); }
    void everyPageStartsWithWhatItDoes()
    {
        QFETCH(const int, index);
        const Manual manual = manuals().at(index);
        QString start = u"# morvalen %1\n\n%2.\n\n"_s.arg(manual.word, manual.does);
        start[start.indexOf(u"\n\n"_s) + 2] = manual.does.front().toUpper();
        QCOMPARE(pageOf(manual).first(qMin(start.size(), pageOf(manual).size())), start);
    }

    void everyPageHasTheUsage_data() { addManuals(); }
    void everyPageHasTheUsage()
    {
        QFETCH(const int, index);
        const Manual manual = manuals().at(index);
        QString table = u"## Usage\n\n| Call | Does |\n|---|---|\n"_s;
        for (const ensemble::ManualCall &call : manual.calls)
            table += u"| `%1` | %2 |\n"_s.arg(cell(call.call), cell(call.does));
        const QString page = pageOf(manual);
        const qsizetype begin = page.indexOf(u"## Usage\n"_s);
        QVERIFY(begin >= 0);
        QCOMPARE(page.mid(begin, table.size()), table);
    }

    void theIndexListsThemInOrder()
    {
        QString table = u"| Subcommand | Does |\n|---|---|\n"_s;
        for (const Manual &manual : manuals())
            table += u"| [%1](morvalen-%1.md) | %2 |\n"_s.arg(manual.word, manual.does);
        QVERIFY2(textOf(pages.filePath(u"morvalen.md"_s)).contains(table + u'\n'),
                 qPrintable(table));
    }

    void noPageIsLeftOver()
    {
        QStringList expected {u"morvalen.md"_s};
        for (const Manual &manual : manuals())
            expected.append(u"morvalen-%1.md"_s.arg(manual.word));
        expected.sort();
        QStringList found = pages.entryList(QDir::Files);
        found.sort();
        QCOMPARE(found, expected);
    }

    void theProgramHasThemAll()
    {
        const QString resources = textOf(QStringLiteral(SOURCE_DIR "/app/morvalen.qrc"));
        for (const QString &page : pages.entryList(QDir::Files)) {
            const QString entry = u"<file alias=\"%1\">../docs/ensemble/%1</file>"_s.arg(page);
            QVERIFY2(resources.contains(entry), qPrintable(entry));
        }
    }

    void everyLinkLeadsSomewhere()
    {
        static const QRegularExpression link(uR"re(\]\(([^)#:]+)\))re"_s);
        for (const QString &page : pages.entryList(QDir::Files)) {
            for (const QRegularExpressionMatch &match :
                 link.globalMatch(textOf(pages.filePath(page))))
                QVERIFY2(pages.exists(match.captured(1)),
                         qPrintable(page + u": "_s + match.captured(1)));
        }
    }

    void nextWords_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<QStringList>("next");
        QTest::newRow("next-1 behind another command")
            << QStringList {u"files"_s} << QStringList {};
        QTest::newRow("next-2 of a group")
            << QStringList {u"morvalen"_s, u"macro"_s}
            << QStringList {u"list"_s, u"get"_s, u"set"_s, u"unset"_s};
        QTest::newRow("next-3 options") << QStringList {u"morvalen"_s, u"files"_s}
                                        << QStringList {u"-node"_s, u"-category"_s, u"-design"_s};
        QTest::newRow("next-4 options of an item")
            << QStringList {u"morvalen"_s, u"macro"_s, u"get"_s, u"sim"_s}
            << QStringList {u"-design"_s};
        QTest::newRow("next-5 behind an unknown word")
            << QStringList {u"morvalen"_s, u"x"_s} << QStringList {};
        QTest::newRow("next-6 nothing") << QStringList {} << QStringList {};
    }
    void nextWords()
    {
        QFETCH(const QStringList, words);
        QFETCH(const QStringList, next);
        QCOMPARE(ensemble::nextWords(words), next);
        QVERIFY(ensemble::nextWords({u"morvalen"_s}).contains(u"configuration"_s));
    }
};

GUILESS_TEST_CLASS(tst_EnsemblePages)
#include "tst_EnsemblePages.moc"
