#include "tests/TestClass.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::Literals::StringLiterals;

// What the Makefile does with what users hand to it, seen with a program that prints its arguments.
class tst_Make : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void saysWhatItCanDo();
    void handsOnArguments_data();
    void handsOnArguments();
    void refusesArgumentsThatAreNoShellWords();
    void passesOnTheProgramsStatus();
    void installsAndUninstalls_data();
    void installsAndUninstalls();
    void uninstallsNothingFromAnotherPlace();
    void uninstallsNothingTwice();
    void uninstallsNothingThatClimbsOut();
    void saysWhatTheTestsLeftOut();

private:
    struct Ended
    {
        int status;
        QString output;
        QString error;
    };

    static Ended ended(const QString &program, const QStringList &arguments);
    // Make in the project's folder, as if the program were built.
    static Ended make(const QStringList &arguments);
    QString path(const QString &name) const { return folder->filePath(name); }
    void write(const QString &name, const QString &text) const;
    QString fakeProgram() const { return u"program="_s + path(u"program"_s); }

    std::unique_ptr<QTemporaryDir> folder;
};

tst_Make::Ended tst_Make::ended(const QString &program, const QStringList &arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // The test itself may run below a make.
    for (const char *name : {"MAKEFLAGS", "MFLAGS", "MAKELEVEL", "MAKEOVERRIDES", "DESTDIR", "CI"})
        environment.remove(QString::fromLatin1(name));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(QStringLiteral(SOURCE_DIR));
    process.start(program, arguments);
    process.waitForFinished(-1);
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

tst_Make::Ended tst_Make::make(const QStringList &arguments)
{
    return ended(u"make"_s, QStringList {u"-s"_s, u"-o"_s, u"build"_s} + arguments);
}

void tst_Make::write(const QString &name, const QString &text) const
{
    QVERIFY(QDir().mkpath(QFileInfo(path(name)).path()));
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text.toUtf8());
    file.setPermissions(file.permissions() | QFile::ExeOwner);
}

void tst_Make::init()
{
    folder = std::make_unique<QTemporaryDir>();
    write(u"program"_s,
          u"#!/bin/sh\nfor argument; do printf '<%s>' \"$argument\"; done\nexit ${STATUS-0}\n"_s);
}

void tst_Make::saysWhatItCanDo()
{
    const Ended run = ended(u"make"_s, {});
    QCOMPARE(run.error, QString());
    QCOMPARE(run.status, 0);
    for (const char *target : {"run", "build", "test", "bench", "install", "uninstall", "format"})
        QVERIFY2(run.output.contains(u"make "_s + QString::fromLatin1(target) + u' '), target);
}

void tst_Make::handsOnArguments_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("handed");
    QTest::newRow("words-1 plain words") << u"-c overview"_s << u"<-c><overview>"_s;
    QTest::newRow("words-2 a word in apostrophes") << u"-c 'files list'"_s << u"<-c><files list>"_s;
    QTest::newRow("words-3 a word in quotes") << u"-c \"files  list\""_s << u"<-c><files  list>"_s;
    QTest::newRow("words-4 an apostrophe in quotes") << u"\"it's.xml\""_s << u"<it's.xml>"_s;
    QTest::newRow("words-5 a blank behind a backslash") << u"it\\ is"_s << u"<it is>"_s;
    QTest::newRow("words-6 a dollar") << u"'puts $x'"_s << u"<puts $x>"_s;
    QTest::newRow("words-7 what make would take for its own")
        << u"'$(HOME) $@ $$'"_s << u"<$(HOME) $@ $$>"_s;
    QTest::newRow("words-8 an empty word") << u"'' -v"_s << u"<><-v>"_s;
}

void tst_Make::handsOnArguments()
{
    QFETCH(const QString, arguments);
    const Ended run = make({u"run"_s, fakeProgram(), u"ARGS="_s + arguments});
    QCOMPARE(run.error, QString());
    QTEST(run.output, "handed");
    QCOMPARE(run.status, 0);
}

void tst_Make::refusesArgumentsThatAreNoShellWords()
{
    const Ended run = make({u"run"_s, fakeProgram(), u"ARGS=it's.xml"_s});
    QCOMPARE(run.output, QString());
    QVERIFY(run.status != 0);
    QVERIFY2(run.error.contains(u"nterminated quoted string"_s)
                 || run.error.contains(u"unexpected EOF"_s),
             qPrintable(run.error));
}

void tst_Make::passesOnTheProgramsStatus()
{
    const Ended run = make({u"run"_s, u"program=STATUS=3 "_s + path(u"program"_s), u"ARGS=-v"_s});
    QCOMPARE(run.output, u"<-v>"_s);
    QVERIFY(run.status != 0);
    QVERIFY2(run.error.contains(u"Error 3"_s), qPrintable(run.error));
}

void tst_Make::installsAndUninstalls_data()
{
    QTest::addColumn<QString>("destination");
    QTest::addColumn<QString>("prefix");
    QTest::newRow("install-1 a prefix") << QString() << u"plain"_s;
    QTest::newRow("install-2 an apostrophe and blanks") << QString() << u"it's a place"_s;
    QTest::newRow("install-3 a destination with an apostrophe") << u"it's a root"_s << u"usr"_s;
}

void tst_Make::installsAndUninstalls()
{
    QFETCH(const QString, destination);
    QFETCH(const QString, prefix);
    const QString prefixPath = path(prefix);
    const QString root = destination.isEmpty() ? QString() : path(destination);
    const QStringList words {u"folder="_s + QStringLiteral(BINARY_DIR), u"PREFIX="_s + prefixPath,
                             u"DESTDIR="_s + root};
    const Ended installed = make(QStringList {u"install"_s} + words);
    QCOMPARE(installed.error, QString());
    QCOMPARE(installed.status, 0);
    QVERIFY(QFile::exists(root + prefixPath + u"/bin/morvalen"_s));
    QFile own(root + prefixPath + u"/include/TclScripting/own.h"_s);
    QVERIFY(own.open(QIODevice::WriteOnly));
    own.close();

    const Ended uninstalled = make(QStringList {u"uninstall"_s} + words);
    QCOMPARE(uninstalled.error, QString());
    QCOMPARE(uninstalled.status, 0);
    QVERIFY(!QFile::exists(root + prefixPath + u"/bin/morvalen"_s));
    QVERIFY(!QFile::exists(root + prefixPath + u"/include/Qtilities"_s));
    QVERIFY(own.exists());
}

void tst_Make::uninstallsNothingFromAnotherPlace()
{
    write(u"install_manifest.txt"_s, path(u"here/file"_s) + u'\n' + path(u"there/file"_s));
    write(u"here/file"_s, QString());
    write(u"there/file"_s, QString());
    const Ended run =
        make({u"uninstall"_s, u"folder="_s + folder->path(), u"PREFIX="_s + path(u"here"_s)});
    QVERIFY(run.status != 0);
    QVERIFY2(run.error.startsWith(u"Nothing was removed: "_s + path(u"there/file"_s)
                                  + u" was installed, which is not below "_s + path(u"here"_s)
                                  + u".\n"_s),
             qPrintable(run.error));
    QVERIFY(QFile::exists(path(u"here/file"_s)));
    QVERIFY(QFile::exists(path(u"there/file"_s)));
}

void tst_Make::uninstallsNothingTwice()
{
    const Ended run =
        make({u"uninstall"_s, u"folder="_s + folder->path(), u"PREFIX="_s + folder->path()});
    QVERIFY(run.status != 0);
    QVERIFY2(run.error.startsWith(u"Nothing was installed from here: there is no "_s
                                  + path(u"install_manifest.txt"_s) + u".\n"_s),
             qPrintable(run.error));
}

void tst_Make::uninstallsNothingThatClimbsOut()
{
    write(u"install_manifest.txt"_s, path(u"here/../there/file"_s));
    write(u"there/file"_s, QString());
    const Ended run =
        make({u"uninstall"_s, u"folder="_s + folder->path(), u"PREFIX="_s + path(u"here"_s)});
    QVERIFY(run.status != 0);
    QVERIFY(QFile::exists(path(u"there/file"_s)));
}

void tst_Make::saysWhatTheTestsLeftOut()
{
    QVERIFY(QDir(folder->path()).mkpath(u"Testing/Temporary"_s));
    write(u"Testing/Temporary/LastTest.log"_s,
          u"PASS   : tst_B::two()\n"
          "SKIP   : tst_B::one(b-1 a (b) c) verilator is not installed (Debian: verilator)\n"
          "   Loc: [/tests/tst_B.cpp(7)]\n"
          "SKIP   : tst_B::one(b-2) verilator is not installed (Debian: verilator)\n"
          "   Loc: [/tests/tst_B.cpp(7)]\n"
          "SKIP   : tst_A::one() The kernel lets this user mount nothing.\n"_s);
    const Ended said = ended(QStringLiteral(SOURCE_DIR "/scripts/left-out"), {folder->path()});
    QCOMPARE(said.output,
             u"Left out (1 of tst_A): The kernel lets this user mount nothing.\n"
             "Left out (2 of tst_B): verilator is not installed (Debian: verilator)\n"_s);
    QCOMPARE(said.error, QString());
    QCOMPARE(said.status, 0);
}

GUILESS_TEST_CLASS(tst_Make)
#include "tst_Make.moc"
