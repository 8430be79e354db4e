#include "tests/desktop/Command.h"
#include "tests/needed.h"
#include "tests/TestClass.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

// The manual page and the completions are made of the text of --help.
class tst_HelpPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theManualPageSaysWhatHelpSays();
    void theBashCompletionKnowsOptionsAndValues();
    void theZshCompletionKnowsOptionsAndValues();
    void pagesAreAsNewAsTheProgram_data();
    void pagesAreAsNewAsTheProgram();
    void everyOptionOfTheProgramIsInThePage();
    void roffFindsNothingWrong();
    void refusesAWrongCall();

private:
    static Command make(const QString &program, const QString &folder);
    static QString page(const QString &folder, const QString &name);
    // A page of a program with a help text of the test's own.
    static QString pageOfSample(const QString &name);
};

namespace {

const QString sampleHelp = uR"(Usage: morvalen [OPTION...]
       morvalen --batch SCRIPT [ARG...]

First line of a
paragraph with a \.

  --batch SCRIPT [ARG...]  runs it: don't
                           stop [ever]
  -c COMMAND               runs one
  --session DIR            folder
  --quiet                  says nothing
  -h, --help               shows this text

Second paragraph.

Exit status: 0 when well,
1 when not.
)"_s;

} // namespace

Command tst_HelpPages::make(const QString &program, const QString &folder)
{
    return Command::run(QStringLiteral(SOURCE_DIR) + u"/desktop/make-pages"_s,
                        {program, folder, QStringLiteral(VERSION), QStringLiteral(RELEASE_DATE)});
}

QString tst_HelpPages::page(const QString &folder, const QString &name)
{
    QFile file(folder + u'/' + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString tst_HelpPages::pageOfSample(const QString &name)
{
    const QTemporaryDir folder;
    QFile program(folder.filePath(u"a program"_s));
    if (!program.open(QIODevice::WriteOnly))
        return {};
    program.write("#!/bin/sh\n[ \"$1\" = --help ] && cat <<'END'\n" + sampleHelp.toUtf8()
                  + "END\n");
    program.setPermissions(program.permissions() | QFile::ExeOwner);
    program.close();
    const QString made = folder.filePath(u"made here"_s);
    const Command run = make(program.fileName(), made);
    return run.status == 0 && run.error.isEmpty() ? page(made, name) : run.error;
}

void tst_HelpPages::theManualPageSaysWhatHelpSays()
{
    QString expected = projectText(u"desktop/morvalen.1.in"_s);
    expected.replace(u"@VERSION@"_s, QStringLiteral(VERSION));
    expected.replace(u"@DATE@"_s, QStringLiteral(RELEASE_DATE));
    expected.replace(u"@USAGE@"_s, uR"(.B morvalen
[OPTION...]
.br
.B morvalen
\-\-batch SCRIPT [ARG...])"_s);
    expected.replace(u"@DESCRIPTION@"_s, uR"(First line of a paragraph with a \e.
.PP
Second paragraph.)"_s);
    expected.replace(u"@OPTIONS@"_s, uR"(.TP
.B \-\-batch SCRIPT [ARG...]
runs it: don\(aqt stop [ever]
.TP
.B \-c COMMAND
runs one
.TP
.B \-\-session DIR
folder
.TP
.B \-\-quiet
says nothing
.TP
.B \-h, \-\-help
shows this text)"_s);
    expected.replace(u"@EXIT@"_s, u"0 when well, 1 when not."_s);
    QCOMPARE(pageOfSample(u"morvalen.1"_s), expected);
}

void tst_HelpPages::theBashCompletionKnowsOptionsAndValues()
{
    QString expected = projectText(u"desktop/morvalen.bash.in"_s);
    expected.replace(u"@VALUES@"_s, uR"(        [--batch]=SCRIPT
        [-c]=COMMAND
        [--session]=DIR)"_s);
    expected.replace(u"@OPTIONS@"_s, uR"(        --batch
        -c
        --session
        --quiet
        -h
        --help)"_s);
    QCOMPARE(pageOfSample(u"morvalen.bash"_s), expected);
}

void tst_HelpPages::theZshCompletionKnowsOptionsAndValues()
{
    QString expected = projectText(u"desktop/_morvalen.in"_s);
    expected.replace(
        u"@ARGUMENTS@"_s,
        uR"(    '--batch=[runs it\: don'\''t stop \[ever\]]:script:_files:*:argument:_files' \
    '*-c[runs one]:command: ' \
    '--session=[folder]:folder:_files -/' \
    '--quiet[says nothing]' \
    '(-h --help)'{-h,--help}'[shows this text]' \)"_s);
    QCOMPARE(pageOfSample(u"_morvalen"_s), expected);
}

void tst_HelpPages::pagesAreAsNewAsTheProgram_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("page-1 manual") << u"morvalen.1"_s;
    QTest::newRow("page-2 bash") << u"morvalen.bash"_s;
    QTest::newRow("page-3 zsh") << u"_morvalen"_s;
}

void tst_HelpPages::pagesAreAsNewAsTheProgram()
{
    QFETCH(const QString, name);
    const QTemporaryDir folder;
    const Command run = make(QStringLiteral(PROGRAM), folder.path());
    QCOMPARE(run.error, QString());
    QCOMPARE(run.status, 0);
    QVERIFY(!page(folder.path(), name).isEmpty());
    QCOMPARE(page(QStringLiteral(BINARY_DIR) + u"/desktop"_s, name), page(folder.path(), name));
}

void tst_HelpPages::everyOptionOfTheProgramIsInThePage()
{
    const QString help = Command::run(QStringLiteral(PROGRAM), {u"--help"_s}).output;
    QString manual = page(QStringLiteral(BINARY_DIR) + u"/desktop"_s, u"morvalen.1"_s);
    manual.replace(u"\\-"_s, u"-"_s);
    int options = 0;
    for (const QString &line : help.split(u'\n')) {
        if (!line.startsWith(u"  -"_s))
            continue;
        ++options;
        const QString names = line.mid(2).section(u"  "_s, 0, 0);
        QVERIFY2(manual.contains(u".TP\n.B "_s + names + u'\n'), qPrintable(names));
    }
    QVERIFY(options >= 6);
    QVERIFY(!manual.contains(u'@'));
}

void tst_HelpPages::roffFindsNothingWrong()
{
    NEEDS_TOOL("groff", "groff-base");
    const Command run = Command::run(u"groff"_s,
                                     {u"-man"_s, u"-ww"_s, u"-z"_s, u"-T"_s, u"utf8"_s,
                                      QStringLiteral(BINARY_DIR) + u"/desktop/morvalen.1"_s});
    QCOMPARE(run.error, QString());
    QCOMPARE(run.status, 0);
}

void tst_HelpPages::refusesAWrongCall()
{
    const QString script = QStringLiteral(SOURCE_DIR) + u"/desktop/make-pages"_s;
    const Command run = Command::run(script, {u"program"_s});
    QCOMPARE(run.status, 2);
    QCOMPARE(run.error, u"usage: "_s + script + u" PROGRAM FOLDER VERSION DATE\n"_s);
}

APPLESS_TEST_CLASS(tst_HelpPages)
#include "tst_HelpPages.moc"
