// The tutorial, run line by line.

#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_Tutorial : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLineAnswersAsItSays();
};

namespace {

const QString prompt = u"morvalen > "_s;

struct Exchange
{
    QString command;
    QString answer;
};

// What is typed and answered in the blocks of code of the page.
QList<Exchange> exchangesOf(const QString &page)
{
    static const QRegularExpression block(u"^```\\n(.*?)^```$"_s,
                                          QRegularExpression::MultilineOption
                                              | QRegularExpression::DotMatchesEverythingOption);
    QList<Exchange> exchanges;
    for (const QRegularExpressionMatch &match : block.globalMatch(page)) {
        for (const QString &line : match.captured(1).chopped(1).split(u'\n')) {
            if (line.startsWith(prompt))
                exchanges.append({line.sliced(prompt.size()), QString()});
            else if (!exchanges.isEmpty())
                exchanges.last().answer += line + u'\n';
        }
    }
    return exchanges;
}

// As the console runs them: what a command writes, then its result.
const QByteArray typist = R"(
    fconfigure stdin -encoding utf-8
    while {[gets stdin command] >= 0} {
        catch {uplevel #0 $command} result
        if {$result ne ""} {puts $result}
        puts "--- next"
    }
)";

} // namespace

void tst_Tutorial::everyLineAnswersAsItSays()
{
    const QString page =
        QString::fromUtf8(Program::read(QStringLiteral(SOURCE_DIR "/docs/tutorial.md")));
    const QList<Exchange> exchanges = exchangesOf(page);
    QVERIFY(exchanges.size() > 20);
    Program program;
    program.session = program.path(u"session"_s);
    program.currentFolder = program.path(QString());
    QByteArray typed;
    for (const Exchange &exchange : exchanges)
        typed += exchange.command.toUtf8() + '\n';
    const Ended ended = program.run({u"--batch"_s, program.write(u"typist.tcl"_s, typist)}, typed);
    QCOMPARE(ended.status, 0);
    const QStringList answers = QString::fromUtf8(ended.out).split(u"--- next\n"_s);
    QCOMPARE(answers.size(), exchanges.size() + 1);
    for (qsizetype i = 0; i < exchanges.size(); ++i) {
        QString answer = answers.at(i);
        answer.replace(program.session, u"SESSION"_s);
        QCOMPARE(exchanges.at(i).command + u'\n' + answer,
                 exchanges.at(i).command + u'\n' + exchanges.at(i).answer);
    }
}

GUILESS_TEST_CLASS(tst_Tutorial)
#include "tst_Tutorial.moc"
