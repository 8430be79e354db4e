#include "tests/app/designs/DesignTreeFixture.h"
#include "tests/TestClass.h"

#include <MorvalenCore/ChangeBracket.h>
#include <Qtilities/QtilitiesCategory.h>

#include <QSignalSpy>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::ChangeBracket;
using MorvalenCore::DesignFile;
using MorvalenCore::Interfaces::IDesign;

// How the rows of the tree of open designs follow the designs.
class tst_DesignTreeFollowing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        fixture.emplace();
        QVERIFY(fixture->shown);
    }
    void cleanup() { fixture.reset(); }

    void followsChanges();
    void followsABracketOnce();
    void followsManyCommandsOnce();
    void followsNothingWhileNobodyLooks();
    void keepsIndexesOfWhatStays();
    void keepsIndexesWhenMuchGoes();
    void followsARenamedDesign();
    void showsNothingOfWhatIsGone();
    void forgetsAClosedDesign();

private:
    std::optional<DesignTreeFixture> fixture;
};

void tst_DesignTreeFollowing::followsChanges()
{
    IDesign *uart = fixture->makeDesign(u"uart"_s);
    DesignFile *a = uart->addFile(u"a.v"_s, QString(), true, nullptr);
    QVERIFY(fixture->follow());
    const QStringList rtl {u"uart"_s, u"Files"_s, u"rtl"_s};
    QCOMPARE(fixture->names(rtl), QStringList {u"a.v"_s});
    uart->addFile(u"b.v"_s, QString(), true, nullptr);
    uart->addFile(u"c.v"_s, QString(), true, nullptr);
    a->setActualPath(uart->workingFolderPath() + u"/aa.v"_s);
    QVERIFY(fixture->follow());
    QCOMPARE(fixture->names(rtl), (QStringList {u"aa.v"_s, u"b.v"_s, u"c.v"_s}));
    uart->removeFile(u"b.v"_s);
    a->setCategory(Qtilities::Core::QtilitiesCategory({u"X"_s, u"Y"_s}));
    QVERIFY(fixture->follow());
    QCOMPARE(fixture->names(rtl), (QStringList {u"aa.v"_s, u"c.v"_s}));
    QCOMPARE(DesignTreeFixture::textOf(fixture->row(rtl + QStringList {u"aa.v"_s}), DetailsColumn),
             u"X::Y"_s);
}

void tst_DesignTreeFollowing::followsABracketOnce()
{
    IDesign *uart = fixture->makeDesign(u"uart"_s);
    const QSignalSpy followed(fixture->model(), &DesignTreeModel::followed);
    const QSignalSpy inserted(fixture->model(), &DesignTreeModel::rowsInserted);
    ChangeBracket::instance()->open();
    for (int i = 0; i < 1'000; ++i)
        uart->addFile(u"f%1.v"_s.arg(i), QString(), true, nullptr);
    QCOMPARE(followed.size(), 0);
    ChangeBracket::instance()->close();
    QVERIFY(fixture->follow());
    QCOMPARE(fixture->names({u"uart"_s, u"Files"_s, u"rtl"_s}).size(), 1'000);
    QCOMPARE(followed.size(), 1);
    QCOMPARE(inserted.size(), 1);
}

// Each in a bracket of its own, as a script that adds file by file.
void tst_DesignTreeFollowing::followsManyCommandsOnce()
{
    IDesign *uart = fixture->makeDesign(u"uart"_s);
    const QSignalSpy followed(fixture->model(), &DesignTreeModel::followed);
    for (int i = 0; i < 1'000; ++i) {
        ChangeBracket::instance()->open();
        uart->addFile(u"f%1.v"_s.arg(i), QString(), true, nullptr);
        ChangeBracket::instance()->close();
    }
    QVERIFY(fixture->follow());
    QCOMPARE(fixture->names({u"uart"_s, u"Files"_s, u"rtl"_s}).size(), 1'000);
    QCOMPARE(followed.size(), 1);
}

void tst_DesignTreeFollowing::followsNothingWhileNobodyLooks()
{
    fixture->tree.hide();
    const QSignalSpy followed(fixture->model(), &DesignTreeModel::followed);
    fixture->session.create(u"uart"_s);
    fixture->session.create(u"fifo"_s);
    QCoreApplication::processEvents();
    QCOMPARE(followed.size(), 0);
    fixture->tree.show();
    QCOMPARE(fixture->names(), (QStringList {u"uart"_s, u"fifo"_s}));
    QCOMPARE(followed.size(), 1);
}

void tst_DesignTreeFollowing::keepsIndexesOfWhatStays()
{
    IDesign *uart = fixture->makeDesign(u"uart"_s);
    for (const QString &name : {u"a.v"_s, u"b.v"_s, u"c.v"_s, u"d.v"_s})
        uart->addFile(name, QString(), true, nullptr);
    QVERIFY(fixture->follow());
    const QStringList rtl {u"uart"_s, u"Files"_s, u"rtl"_s};
    const QPersistentModelIndex node(fixture->row(rtl));
    const QPersistentModelIndex b(fixture->row(rtl + QStringList {u"b.v"_s}));
    const QPersistentModelIndex d(fixture->row(rtl + QStringList {u"d.v"_s}));
    fixture->makeDesign(u"fifo"_s);
    uart->removeFile(u"a.v"_s);
    uart->removeFile(u"d.v"_s);
    uart->addFile(u"e.v"_s, QString(), true, nullptr);
    QVERIFY(fixture->follow());
    QCOMPARE(QModelIndex(node), fixture->row(rtl));
    QCOMPARE(b.row(), 0);
    QCOMPARE(b.data().toString(), u"b.v"_s);
    QVERIFY(!d.isValid());
}

void tst_DesignTreeFollowing::keepsIndexesWhenMuchGoes()
{
    IDesign *uart = fixture->makeDesign(u"uart"_s);
    for (int i = 0; i < 1'000; ++i)
        uart->addFile(u"f%1.v"_s.arg(i), QString(), true, nullptr);
    QVERIFY(fixture->follow());
    const QStringList rtl {u"uart"_s, u"Files"_s, u"rtl"_s};
    const QPersistentModelIndex odd(fixture->row(rtl + QStringList {u"f501.v"_s}));
    const QPersistentModelIndex even(fixture->row(rtl + QStringList {u"f500.v"_s}));
    const QSignalSpy removed(fixture->model(), &DesignTreeModel::rowsRemoved);
    const QSignalSpy arranged(fixture->model(), &DesignTreeModel::layoutChanged);
    ChangeBracket::instance()->open();
    for (int i = 0; i < 1'000; i += 2)
        uart->removeFile(u"f%1.v"_s.arg(i));
    ChangeBracket::instance()->close();
    QVERIFY(fixture->follow());
    QCOMPARE(fixture->names(rtl).size(), 500);
    QCOMPARE(odd.data().toString(), u"f501.v"_s);
    QCOMPARE(odd.row(), 250);
    QVERIFY(!even.isValid());
    QCOMPARE(removed.size(), 0);
    QCOMPARE(arranged.size(), 1);
}

void tst_DesignTreeFollowing::followsARenamedDesign()
{
    IDesign *uart = fixture->makeDesign(u"uart"_s);
    const QPersistentModelIndex index(fixture->row({u"uart"_s}));
    uart->setVendor(u"acme"_s);
    uart->setName(u"serial"_s);
    QVERIFY(fixture->follow());
    QCOMPARE(index.data().toString(), u"serial"_s);
    uart->addFile(u"a.v"_s, QString(), true, nullptr);
    QVERIFY(fixture->follow());
    QCOMPARE(fixture->names({u"serial"_s, u"Files"_s, u"rtl"_s}), QStringList {u"a.v"_s});
}

// In a bracket, and until the tree follows, rows stand for what is not there any more.
void tst_DesignTreeFollowing::showsNothingOfWhatIsGone()
{
    IDesign *uart = fixture->makeDesign(u"uart"_s);
    uart->addFile(u"a.v"_s, QString(), true, nullptr);
    uart->addProperty(u"p"_s, {}, 1, false, nullptr);
    QVERIFY(fixture->follow());
    const QModelIndex file = fixture->row({u"uart"_s, u"Files"_s, u"rtl"_s, u"a.v"_s});
    const QModelIndex property = fixture->row({u"uart"_s, u"Properties"_s, u"p"_s});
    ChangeBracket::instance()->open();
    uart->removeFile(u"a.v"_s);
    uart->removeProperty(u"p"_s);
    for (int column = 0; column < TreeColumnCount; ++column) {
        QCOMPARE(DesignTreeFixture::textOf(file, column), QString());
        QCOMPARE(DesignTreeFixture::textOf(property, column), QString());
    }
    QVERIFY(!fixture->model()->row(file).isThere());
    fixture->view()->grab();
    delete uart->objectBase();
    QCOMPARE(fixture->row({u"uart"_s}), QModelIndex());
    fixture->view()->grab();
    ChangeBracket::instance()->close();
    QVERIFY(fixture->follow());
    QCOMPARE(fixture->model()->rowCount(), 0);
}

void tst_DesignTreeFollowing::forgetsAClosedDesign()
{
    IDesign *uart = fixture->makeDesign(u"uart"_s);
    fixture->makeDesign(u"fifo"_s);
    uart->addFile(u"a.v"_s, QString(), true, nullptr);
    QVERIFY(fixture->follow());
    const TreeRow row = fixture->model()->row(fixture->row({u"uart"_s}));
    QVERIFY(row.isThere());
    QVERIFY(fixture->session.manager()->closeDesign(uart->id(u"."_s), false));
    QVERIFY(!row.isThere());
    QVERIFY(fixture->follow());
    QCOMPARE(fixture->names(), QStringList {u"fifo"_s});
    // One of the same name is another design.
    QVERIFY(fixture->session.open(fixture->session.designs(u"uart/component.xml"_s)));
    QVERIFY(fixture->follow());
    QCOMPARE(fixture->names(), (QStringList {u"fifo"_s, u"uart"_s}));
    QCOMPARE(fixture->names({u"uart"_s, u"Files"_s, u"rtl"_s}), QStringList {u"a.v"_s});
}

TEST_CLASS(tst_DesignTreeFollowing)
#include "tst_DesignTreeFollowing.moc"
