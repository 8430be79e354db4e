#include "tests/TestClass.h"

#include <Qtilities/paths.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace Qtilities::Core;

// What stands in a path, and what one question to the system tells of it.
class tst_Paths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QFile file(path(u"file"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(QDir(folder->path()).mkdir(u"inner"_s));
        QVERIFY(QFile::link(u"file"_s, path(u"link"_s)));
        QVERIFY(QFile::link(u"nothing"_s, path(u"dangling"_s)));
        QVERIFY(QFile::link(u"inner"_s, path(u"way"_s)));
    }
    void takesPathsApart_data();
    void takesPathsApart();
    void tellsLinks();
    void tellsWhatCanBeWritten();
    void followsAllLinks();

private:
    QString path(const QString &name) const { return folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> folder;
};

void tst_Paths::takesPathsApart_data()
{
    QTest::addColumn<QString>("whole");
    QTest::addColumn<QString>("front");
    QTest::addColumn<QString>("name");
    QTest::newRow("file") << u"/a/b.xml"_s << u"/a"_s << u"b.xml"_s;
    QTest::newRow("deep") << u"/a/b/c"_s << u"/a/b"_s << u"c"_s;
    QTest::newRow("in the root") << u"/a"_s << u"/"_s << u"a"_s;
}

void tst_Paths::takesPathsApart()
{
    QFETCH(const QString, whole);
    QFETCH(const QString, front);
    QFETCH(const QString, name);
    QCOMPARE(folderOf(whole), front);
    QCOMPARE(fileNameOf(whole), name);
    QCOMPARE(pathIn(front, name), whole);
}

void tst_Paths::tellsLinks()
{
    QVERIFY(isLink(path(u"link"_s)));
    QVERIFY(isLink(path(u"dangling"_s)));
    QVERIFY(isLink(path(u"way"_s)));
    QVERIFY(!isLink(path(u"file"_s)));
    QVERIFY(!isLink(path(u"inner"_s)));
    QVERIFY(!isLink(path(u"way/none"_s)));
    QVERIFY(!isLink(QString()));
    QVERIFY(!isLink(path(u"link"_s) + QChar() + u'x'));
}

void tst_Paths::tellsWhatCanBeWritten()
{
    QVERIFY(isWritable(path(u"file"_s)));
    QVERIFY(isWritable(path(u"link"_s)));
    QVERIFY(!isWritable(path(u"dangling"_s)));
    QVERIFY(!isWritable(QString()));
    QVERIFY(!isWritable(path(u"file"_s) + QChar() + u'x'));
}

void tst_Paths::followsAllLinks()
{
    const QString real = QDir(folder->path()).canonicalPath();
    QCOMPARE(canonicalPath(path(u"link"_s)), real + u"/file"_s);
    QCOMPARE(canonicalPath(path(u"way/../file"_s)), real + u"/file"_s);
    QCOMPARE(canonicalPath(path(u"inner/."_s)), real + u"/inner"_s);
    QCOMPARE(canonicalPath(path(u"dangling"_s)), QString());
    QCOMPARE(canonicalPath(path(u"file/none"_s)), QString());
    QCOMPARE(canonicalPath(QString()), QString());
    QCOMPARE(canonicalPath(path(u"file"_s) + QChar() + u'x'), QString());
    QCOMPARE(canonicalPath(u"/"_s), u"/"_s);
}

GUILESS_TEST_CLASS(tst_Paths)
#include "tst_Paths.moc"
