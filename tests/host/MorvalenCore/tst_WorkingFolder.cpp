#include "disk/WorkingFolder.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <optional>
#include <thread>
#include <vector>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::WorkingFolder;

namespace {

void write(const QString &file)
{
    QFile out(file);
    if (!out.open(QIODevice::WriteOnly) || out.write("content") != 7)
        qFatal("cannot write %s", qPrintable(file));
}

QStringList content(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

} // namespace

// The working folders of new designs: made whole or not at all, and by one only.
class tst_WorkingFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { outer.emplace(); }

    void makesTheFolderAndThoseInIt();
    void takesBackWhatItMade();
    void keepsAnEmptyFolderThatWasThere();
    void leavesWhatOthersPutIntoIt();
    void refuses_data();
    void refuses();
    void givesTheFolderToOneOfManyAtMost_data();
    void givesTheFolderToOneOfManyAtMost();

private:
    QString in(const QString &name) const
    {
        return QFileInfo(outer->path()).canonicalFilePath() + u'/' + name;
    }
    const QStringList folders {u"one"_s, u"two"_s};
    std::optional<QTemporaryDir> outer;
};

void tst_WorkingFolder::makesTheFolderAndThoseInIt()
{
    QString error;
    {
        WorkingFolder folder;
        QVERIFY2(folder.make(in(u"a/b/work"_s), folders).toErrorText(&error), qPrintable(error));
        folder.keep();
    }
    QCOMPARE(content(in(u"a/b/work"_s)), folders);
}

void tst_WorkingFolder::takesBackWhatItMade()
{
    QString error;
    {
        WorkingFolder folder;
        QVERIFY(folder.make(in(u"work"_s), folders).toErrorText(&error));
        write(in(u"work/component.xml"_s));
        folder.addFile(u"component.xml"_s);
    }
    QVERIFY(!QFileInfo::exists(in(u"work"_s)));
}

void tst_WorkingFolder::keepsAnEmptyFolderThatWasThere()
{
    QVERIFY(QDir().mkpath(in(u"work"_s)));
    QString error;
    {
        WorkingFolder folder;
        QVERIFY(folder.make(in(u"work"_s), folders).toErrorText(&error));
        QCOMPARE(content(in(u"work"_s)), folders);
    }
    QCOMPARE(content(in(u"work"_s)), QStringList());
    QVERIFY(QFileInfo::exists(in(u"work"_s)));
}

void tst_WorkingFolder::leavesWhatOthersPutIntoIt()
{
    QString error;
    {
        WorkingFolder folder;
        QVERIFY(folder.make(in(u"work"_s), folders).toErrorText(&error));
        write(in(u"work/two/theirs"_s));
    }
    QCOMPARE(content(in(u"work"_s)), QStringList {u"two"_s});
    QVERIFY(QFileInfo::exists(in(u"work/two/theirs"_s)));
}

void tst_WorkingFolder::refuses_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    QTest::newRow("work-refused-1 a folder with something in it")
        << u"full"_s << u"The folder \"IN/full\" is not empty"_s;
    QTest::newRow("work-refused-2 a folder with something hidden in it")
        << u"hidden"_s << u"The folder \"IN/hidden\" is not empty"_s;
    QTest::newRow("work-refused-3 a file")
        << u"full/file"_s << u"The folder \"IN/full/file\" cannot be made: File exists"_s;
    QTest::newRow("work-refused-4 a link to an empty folder")
        << u"link"_s << u"The folder \"IN/link\" cannot be made: File exists"_s;
    QTest::newRow("work-refused-5 below a file")
        << u"full/file/work"_s << u"The folder \"IN/full/file\" cannot be made: File exists"_s;
    QTest::newRow("work-refused-6 a name that is too long")
        << QString(300, u'x')
        << u"The folder \"IN/%1\" cannot be made: File name too long"_s.arg(QString(300, u'x'));
}

void tst_WorkingFolder::refuses()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    QVERIFY(QDir().mkpath(in(u"full"_s)) && QDir().mkpath(in(u"hidden"_s))
            && QDir().mkpath(in(u"empty"_s)));
    write(in(u"full/file"_s));
    write(in(u"hidden/.file"_s));
    QVERIFY(QFile::link(in(u"empty"_s), in(u"link"_s)));
    QString error;
    WorkingFolder folder;
    QVERIFY(!folder.make(in(path), folders).toErrorText(&error));
    QCOMPARE(error, reason.replace(u"IN/"_s, in(QString())));
    QCOMPARE(content(in(u"full"_s)), QStringList {u"file"_s});
    QCOMPARE(content(in(u"empty"_s)), QStringList());
    QCOMPARE(content(in(QString())).size(), 4);
}

void tst_WorkingFolder::givesTheFolderToOneOfManyAtMost_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::newRow("race-1 a new folder") << false;
    QTest::newRow("race-2 an empty folder") << true;
}

void tst_WorkingFolder::givesTheFolderToOneOfManyAtMost()
{
    QFETCH(bool, isThere);
    int successes = 0;
    for (int round = 0; round < 100; ++round) {
        const QString path = in(u"work%1"_s.arg(round));
        if (isThere)
            QVERIFY(QDir().mkpath(path));
        std::atomic<int> winners = 0;
        std::atomic<int> ready = 0;
        std::vector<std::thread> racers;
        for (int i = 0; i < 4; ++i) {
            racers.emplace_back([&, i] {
                WorkingFolder folder;
                QString error;
                for (++ready; ready < 4;)
                    std::this_thread::yield();
                // Structures differ, and so do the folders in it.
                if (folder.make(path, {i % 2 ? u"odd"_s : u"even"_s}).toErrorText(&error)) {
                    ++winners;
                    folder.keep();
                }
            });
        }
        for (std::thread &racer : racers)
            racer.join();
        QVERIFY(winners <= 1);
        successes += winners;
        if (winners == 1)
            QCOMPARE(content(path).size(), 1);
    }
    QVERIFY(successes > 0);
}

GUILESS_TEST_CLASS(tst_WorkingFolder)
#include "tst_WorkingFolder.moc"
