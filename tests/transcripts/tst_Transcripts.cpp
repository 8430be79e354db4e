// Runs every script of this folder's folders in the program and compares what it writes with the
// text beside it. "tst_Transcripts --renew" writes the texts anew instead.

#include "commands/commandset.h"
#include "commands/manuals.h"
#include "tests/process/Program.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QDir transcripts(QStringLiteral(SOURCE_DIR "/tests/transcripts"));

QStringList scripts()
{
    QStringList all;
    for (const QString &folder : transcripts.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        for (const QString &script : QDir(transcripts.filePath(folder)).entryList({u"*.tcl"_s}))
            all.append(folder + u'/' + script);
    }
    return all;
}

QString textOf(const QString &script)
{
    return transcripts.filePath(script.chopped(4) + u".txt"_s);
}

// What differs from run to run gets a name in capitals.
QString withoutPlaces(QString text, const Program &program)
{
    static const QRegularExpression port(uR"((Application Session UDP Port +- )[1-9]\d*)"_s);
    text.replace(program.session, u"SESSION"_s);
    text.replace(program.currentFolder, u"FOLDER"_s);
    text.replace(QFileInfo(QStringLiteral(PROGRAM)).path(), u"PROGRAMS"_s);
    text.replace(port, u"\\1PORT"_s);
    text.replace(u"Application Version                 - " VERSION ""_s,
                 u"Application Version                 - VERSION"_s);
    return text;
}

// A run as text: what it wrote, what reached the log from warnings on, and its exit status.
QString transcript(const QString &script)
{
    const Program program;
    const Ended ended = program.run({u"--batch"_s, transcripts.filePath(script)});
    QString text = QString::fromUtf8(ended.out);
    if (!ended.err.isEmpty())
        text += u"--- log\n"_s + QString::fromUtf8(ended.err);
    return withoutPlaces(text, program) + u"--- exit status "_s + QString::number(ended.status)
        + u'\n';
}

QString read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

int renew()
{
    for (const QString &script : scripts()) {
        QFile file(textOf(script));
        const QByteArray text = transcript(script).toUtf8();
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            return 1;
    }
    return 0;
}

} // namespace

class tst_Transcripts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void run_data()
    {
        QTest::addColumn<QString>("script");
        for (const QString &script : scripts())
            QTest::newRow(qPrintable(script)) << script;
    }
    void run()
    {
        QFETCH(const QString, script);
        const QStringList actual = transcript(script).split(u'\n');
        const QStringList expected = read(textOf(script)).split(u'\n');
        for (qsizetype i = 0; i < qMin(actual.size(), expected.size()); ++i) {
            if (actual[i] != expected[i])
                qWarning("first difference in line %lld", i + 1);
            QCOMPARE(actual[i], expected[i]);
        }
        QCOMPARE(actual.size(), expected.size());
    }

    // Every form of every command is called in a transcript of its command.
    void everySubcommandHasATranscript_data()
    {
        QTest::addColumn<QString>("word");
        QTest::addColumn<QStringList>("forms");
        for (const commands::Command &command : commands::commandSet()) {
            const QStringList forms =
                command.manual ? command.manual->forms() : QStringList {u""_s};
            QTest::newRow(command.word) << QString::fromUtf8(command.word) << forms;
        }
    }
    void everySubcommandHasATranscript()
    {
        QFETCH(const QString, word);
        QFETCH(const QStringList, forms);
        QString texts;
        for (const QString &script : scripts().filter(QRegularExpression(u"^"_s + word + u"/"_s)))
            texts += read(textOf(script));
        QStringList missing;
        for (const QString &form : forms) {
            const QString call = u"^> "_s + (word + u' ' + form).trimmed() + u"( |$)"_s;
            if (!texts.contains(QRegularExpression(call, QRegularExpression::MultilineOption)))
                missing.append(form);
        }
        QCOMPARE(missing, QStringList());
    }

    void noTextIsLeftOver()
    {
        for (const QString &folder : transcripts.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            for (const QString &text : QDir(transcripts.filePath(folder)).entryList({u"*.txt"_s}))
                QVERIFY2(scripts().contains(folder + u'/' + text.chopped(4) + u".tcl"_s),
                         qPrintable(folder + u'/' + text));
        }
    }
};

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    if (application.arguments().contains(u"--renew"_s))
        return renew();
    tst_Transcripts test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_Transcripts.moc"
