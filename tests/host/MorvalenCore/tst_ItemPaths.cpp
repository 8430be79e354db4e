#include "disk/itempaths.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;

// The forms of a path that a design item has.
class tst_ItemPaths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesTheActualPath_data();
    void givesTheActualPath();
    void cleansTheFolderToo();
    void givesTheTextToKeep_data();
    void givesTheTextToKeep();
    void expandsVariablesToTouchTheDisk_data();
    void expandsVariablesToTouchTheDisk();
    void meansWhatLiesOnDiskUnderTheVeryText();
};

void tst_ItemPaths::givesTheActualPath_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("path");
    QTest::newRow("actual-1 nothing") << QString() << QString();
    QTest::newRow("actual-2 relative") << u"rtl/a.v"_s << u"/area/ip/rtl/a.v"_s;
    QTest::newRow("actual-3 relative, not clean") << u"./rtl//x/../a.v"_s << u"/area/ip/rtl/a.v"_s;
    QTest::newRow("actual-4 a folder up") << u"../common/a.v"_s << u"/area/common/a.v"_s;
    QTest::newRow("actual-5 absolute") << u"/other/a.v"_s << u"/other/a.v"_s;
    QTest::newRow("actual-6 absolute, not clean") << u"/other/./b/../a.v"_s << u"/other/a.v"_s;
    QTest::newRow("actual-7 above the root") << u"../../../../a.v"_s << u"/a.v"_s;
    QTest::newRow("actual-8 a dot") << u"."_s << u"/area/ip"_s;
    QTest::newRow("actual-9 names that begin or end with dots")
        << u"..a/.b/c./d../.../e"_s << u"/area/ip/..a/.b/c./d../.../e"_s;
    QTest::newRow("actual-10 a slash at the end") << u"rtl/"_s << u"/area/ip/rtl"_s;
    QTest::newRow("actual-11 two slashes") << u"rtl//a.v"_s << u"/area/ip/rtl/a.v"_s;
    QTest::newRow("actual-12 a dot at the end") << u"rtl/."_s << u"/area/ip/rtl"_s;
    QTest::newRow("actual-13 a folder up at the end") << u"rtl/x/.."_s << u"/area/ip/rtl"_s;
    QTest::newRow("actual-14 a folder up alone") << u".."_s << u"/area"_s;
    QTest::newRow("actual-15 the root") << u"/"_s << u"/"_s;
    QTest::newRow("actual-windows-1 backslashes") << u"rtl\\a.v"_s << u"/area/ip/rtl/a.v"_s;
    QTest::newRow("actual-windows-2 a drive") << u"C:\\area\\b.v"_s << u"C:/area/b.v"_s;
    QTest::newRow("actual-windows-3 a drive with slashes") << u"c:/area/c.v"_s << u"c:/area/c.v"_s;
    QTest::newRow("actual-windows-4 a share") << u"\\\\srv\\share\\d.v"_s << u"//srv/share/d.v"_s;
    QTest::newRow("actual-windows-5 a colon is no drive") << u"a:b.v"_s << u"/area/ip/a:b.v"_s;
    QTest::newRow("actual-variable-1 braces first") << u"${SRC}/a.v"_s << u"${SRC}/a.v"_s;
    QTest::newRow("actual-variable-2 bare first") << u"$SRC/b.v"_s << u"$SRC/b.v"_s;
    QTest::newRow("actual-variable-3 parentheses first") << u"$(SRC)//./c.v"_s << u"$(SRC)/c.v"_s;
    QTest::newRow("actual-variable-4 per cent first") << u"%SRC%\\d.v"_s << u"%SRC%/d.v"_s;
    QTest::newRow("actual-variable-5 in the middle") << u"x/$SRC/a.v"_s << u"/area/ip/x/$SRC/a.v"_s;
    QTest::newRow("actual-variable-6 nobody knows what is up")
        << u"x/$SRC/../a.v"_s << u"/area/ip/x/$SRC/../a.v"_s;
    QTest::newRow("actual-variable-7 a lone dollar") << u"a$1/../b.v"_s << u"/area/ip/b.v"_s;
    QTest::newRow("actual-variable-8 a lone per cent") << u"100%/../b.v"_s << u"/area/ip/b.v"_s;
}

void tst_ItemPaths::givesTheActualPath()
{
    QFETCH(QString, text);
    QFETCH(QString, path);
    QCOMPARE(actualItemPath(text, u"/area/ip"_s), path);
    // What is listed can be given back.
    QCOMPARE(actualItemPath(path, u"/area/ip"_s), path.startsWith(u"//"_s) ? path.mid(1) : path);
}

void tst_ItemPaths::cleansTheFolderToo()
{
    QCOMPARE(actualItemPath(u"a.v"_s, u"/"_s), u"/a.v"_s);
    QCOMPARE(actualItemPath(u"a.v"_s, QString()), u"/a.v"_s);
    QCOMPARE(actualItemPath(u"a.v"_s, u"/area/x/../ip/"_s), u"/area/ip/a.v"_s);
    QCOMPARE(actualItemPath(u"a.v"_s, u"/area/$X/ip"_s), u"/area/$X/ip/a.v"_s);
}

void tst_ItemPaths::givesTheTextToKeep_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("kept");
    QTest::newRow("kept-1 relative") << u"./rtl/a.v"_s << u"./rtl/a.v"_s;
    QTest::newRow("kept-2 absolute below the folder") << u"/area/ip/rtl/a.v"_s << u"rtl/a.v"_s;
    QTest::newRow("kept-3 the same, not clean") << u"/area/x/../ip/a.v"_s << u"a.v"_s;
    QTest::newRow("kept-4 absolute elsewhere") << u"/area/ips/a.v"_s << u"/area/ips/a.v"_s;
    QTest::newRow("kept-5 the folder itself") << u"/area/ip"_s << u"/area/ip"_s;
    QTest::newRow("kept-6 a variable") << u"$SRC/a.v"_s << u"$SRC/a.v"_s;
    QTest::newRow("kept-7 a drive") << u"C:\\a.v"_s << u"C:\\a.v"_s;
}

void tst_ItemPaths::givesTheTextToKeep()
{
    QFETCH(QString, text);
    QFETCH(QString, kept);
    QCOMPARE(storedItemPath(text, u"/area/ip"_s), kept);
}

void tst_ItemPaths::expandsVariablesToTouchTheDisk_data()
{
    QTest::addColumn<QString>("actual");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("error");
    QTest::newRow("disk-1 no variable") << u"/area/ip/a.v"_s << u"/area/ip/a.v"_s << QString();
    for (const QString &form : {u"$MV_SRC"_s, u"${MV_SRC}"_s, u"$(MV_SRC)"_s, u"%MV_SRC%"_s})
        QTest::newRow(qPrintable(u"disk-2 "_s + form))
            << QString(form + u"/a.v"_s) << u"/abs/src/a.v"_s << QString();
    QTest::newRow("disk-3 two") << u"$MV_SRC/${MV_REL}/../a.v"_s << u"/abs/src/a.v"_s << QString();
    QTest::newRow("disk-4 a relative value")
        << u"$MV_REL/a.v"_s << u"/area/ip/rel/a.v"_s << QString();
    QTest::newRow("disk-5 an unset one")
        << u"$MV_SRC/$(MV_UNSET)/a.v"_s << QString()
        << u"\"$MV_SRC/$(MV_UNSET)/a.v\" names the environment variable \"MV_UNSET\", which is "
           "not set"_s;
    QTest::newRow("disk-6 a foreign placeholder")
        << u"$External$/e.v"_s << QString()
        << u"\"$External$/e.v\" names the environment variable \"External\", which is not set"_s;
    QTest::newRow("disk-7 a drive")
        << u"C:/area/b.v"_s << QString() << u"\"C:/area/b.v\" is not a path of this system"_s;
    QTest::newRow("disk-8 a share") << u"//srv/share/d.v"_s << QString()
                                    << u"\"//srv/share/d.v\" is not a path of this system"_s;
}

void tst_ItemPaths::expandsVariablesToTouchTheDisk()
{
    QFETCH(QString, actual);
    QFETCH(QString, path);
    QFETCH(QString, error);
    qputenv("MV_SRC", "/abs/src");
    qputenv("MV_REL", "rel");
    qunsetenv("MV_UNSET");
    QString reason;
    QCOMPARE(tryPathOnDisk(actual, u"/area/ip"_s).valueOr({}, &reason), path);
    QCOMPARE(reason, error);
    QCOMPARE(pathOnDisk(actual, u"/area/ip"_s), path);
}

void tst_ItemPaths::meansWhatLiesOnDiskUnderTheVeryText()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a$b.v"_s);
    QVERIFY(QFile(path).open(QIODevice::WriteOnly));
    QCOMPARE(pathOnDisk(path, folder.path()), path);
    // In the design's folder, not in the current one.
    const QString other = folder.filePath(u"$MV_UNSET"_s);
    QVERIFY(QFile(other).open(QIODevice::WriteOnly));
    QCOMPARE(pathOnDisk(u"$MV_UNSET"_s, folder.path()), other);
    QCOMPARE(pathOnDisk(u"$MV_UNSET"_s, folder.filePath(u"none"_s)), QString());
}

GUILESS_TEST_CLASS(tst_ItemPaths)
#include "tst_ItemPaths.moc"
