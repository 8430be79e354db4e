#include "tests/TestClass.h"

#include <Qtilities/makefolder.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::makeFolder;
using Qtilities::Core::Status;

class tst_MakeFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void makesThoseAboveToo_data();
    void makesThoseAboveToo();
    void saysWhyItCannot_data();
    void saysWhyItCannot();

private:
    QString in(const QString &path) const { return folder->path() + u'/' + path; }

    std::unique_ptr<QTemporaryDir> folder;
};

void tst_MakeFolder::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(folder->path()).mkdir(u"there"_s));
    QFile file(in(u"file"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(QFile::link(in(u"there"_s), in(u"link"_s)));
    QVERIFY(QFile::link(in(u"nowhere"_s), in(u"dangling"_s)));
}

void tst_MakeFolder::makesThoseAboveToo_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("folder-1 one") << u"a"_s;
    QTest::newRow("folder-2 three") << u"a/b/c"_s;
    QTest::newRow("folder-3 a slash at the end") << u"a/b/"_s;
    QTest::newRow("folder-4 one that is there") << u"there"_s;
    QTest::newRow("folder-5 a link to one") << u"link"_s;
    QTest::newRow("folder-6 behind a link") << u"link/a"_s;
    QTest::newRow("folder-7 a way back") << u"a/../b"_s;
}

void tst_MakeFolder::makesThoseAboveToo()
{
    QFETCH(const QString, path);
    const Status made = makeFolder(in(path));
    QVERIFY2(made.isOk(), qPrintable(made.text()));
    QVERIFY(QFileInfo(QDir::cleanPath(in(path))).isDir());
}

void tst_MakeFolder::saysWhyItCannot_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    QTest::newRow("refused-1 a file") << u"IN/file"_s << u"File exists"_s;
    QTest::newRow("refused-2 below a file") << u"IN/file/a/b"_s << u"Not a directory"_s;
    QTest::newRow("refused-3 a link to nothing") << u"IN/dangling"_s << u"File exists"_s;
    QTest::newRow("refused-4 a name that is too long")
        << u"IN/"_s + QString(300, u'x') << u"File name too long"_s;
    QTest::newRow("refused-5 in a file system without folders")
        << u"/proc/a/b"_s << u"No such file or directory"_s;
    QTest::newRow("refused-6 nothing") << QString() << u"that is not the name of a folder"_s;
    QTest::newRow("refused-7 a zero")
        << u"IN/a"_s + QChar() << u"that is not the name of a folder"_s;
}

void tst_MakeFolder::saysWhyItCannot()
{
    QFETCH(QString, path);
    QFETCH(const QString, reason);
    const Status made = makeFolder(path.replace(u"IN"_s, folder->path()));
    QVERIFY(!made.isOk());
    QCOMPARE(made.text(), reason);
}

GUILESS_TEST_CLASS(tst_MakeFolder)
#include "tst_MakeFolder.moc"
