#include "app/designs/RowDelegate.h"
#include "tests/app/designs/DesignTreeFixture.h"
#include "tests/TestClass.h"

#include <MorvalenCore/ChangeBracket.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::ChangeBracket;
using MorvalenCore::DesignFile;
using MorvalenCore::Interfaces::IDesign;

namespace {

// Notes the rows that a view asks for.
class Counting : public RowDelegate
{
public:
    mutable QSet<QModelIndex> asked;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        asked.insert(index.siblingAtColumn(0));
        RowDelegate::initStyleOption(option, index);
    }
};

} // namespace

// What the rows of the tree of open designs show, and how they follow the designs.
class tst_DesignTreeModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        fixture.emplace();
        QVERIFY(fixture->shown);
    }
    void cleanup() { fixture.reset(); }

    void showsADesign();
    void showsDesignsInTheOrderOfOpening();
    void marksWhatIsActive();
    void tellsOfTheState();
    void tellsMoreByTheMouse();
    void asksOnlyForWhatIsShown();

private:
    std::optional<DesignTreeFixture> fixture;
};

void tst_DesignTreeModel::showsADesign()
{
    IDesign *design = fixture->makeDesign(u"uart"_s);
    QVERIFY(design->addFile(u"rtl/uart.v"_s, QString(), true, nullptr));
    QVERIFY(design->addFile(u"notes.md"_s, QString(), true, nullptr));
    QVERIFY(design->addFile(u"odd.xyz"_s, u"other"_s, true, nullptr));
    QVERIFY(design->addProperty(u"width"_s, {}, 8, false, nullptr));
    QVERIFY(fixture->follow());
    QTRY_VERIFY(fixture->lines().contains(u"      uart.v: HDL::Verilog; Missing"_s));
    QTRY_COMPARE(fixture->lines(),
                 (QStringList {
                     u"uart: Hardware Design 1.0; Active, Modified"_s,
                     u"  Files: 3 files"_s,
                     u"    rtl: 1 file"_s,
                     u"      uart.v: HDL::Verilog; Missing"_s,
                     u"    testbench"_s,
                     u"    constraints"_s,
                     u"    documents: 1 file"_s,
                     u"      notes.md: Documentation; Missing"_s,
                     u"    other: 1 file"_s,
                     u"      odd.xyz: Other; Missing"_s,
                     u"  Folders: 4 folders"_s,
                     u"    rtl"_s,
                     u"    testbench"_s,
                     u"    constraints"_s,
                     u"    documents"_s,
                     u"  Properties: 1 property"_s,
                     u"    width: 8"_s,
                     u"  Build Configurations"_s,
                 }));
}

void tst_DesignTreeModel::showsDesignsInTheOrderOfOpening()
{
    fixture->makeDesign(u"b"_s);
    fixture->makeDesign(u"a"_s);
    IDesign *last = fixture->makeDesign(u"c"_s);
    QCOMPARE(fixture->names(), (QStringList {u"b"_s, u"a"_s, u"c"_s}));
    fixture->session.manager()->closeDesign(u"local.global.b.1.0"_s, false);
    last->setName(u"aa"_s);
    QVERIFY(fixture->follow());
    QCOMPARE(fixture->names(), (QStringList {u"a"_s, u"aa"_s}));
}

void tst_DesignTreeModel::marksWhatIsActive()
{
    IDesign *uart = fixture->makeDesign(u"uart"_s);
    fixture->makeDesign(u"fifo"_s);
    DesignFile *file = uart->addFile(u"a.v"_s, QString(), true, nullptr);
    uart->addFile(u"b.v"_s, QString(), true, nullptr);
    uart->setActiveFiles({file});
    uart->setActiveFolders({uart->folders().last()});
    uart->setActiveProperties({uart->addProperty(u"p"_s, {}, 1, false, nullptr)});
    QVERIFY(fixture->follow());
    const auto isMarked = [this](const QStringList &path) {
        const QModelIndex index = fixture->row(path);
        const bool isBold = index.data(Qt::FontRole).value<QFont>().bold();
        const bool isNamed =
            DesignTreeFixture::textOf(index, StateColumn).split(u", "_s).contains(u"Active"_s);
        return index.isValid() && isBold == isNamed && isBold;
    };
    QVERIFY(isMarked({u"fifo"_s}) && !isMarked({u"uart"_s}));
    QVERIFY(isMarked({u"uart"_s, u"Files"_s, u"rtl"_s, u"a.v"_s}));
    QVERIFY(!isMarked({u"uart"_s, u"Files"_s, u"rtl"_s, u"b.v"_s}));
    QVERIFY(isMarked({u"uart"_s, u"Folders"_s, u"documents"_s}));
    QVERIFY(!isMarked({u"uart"_s, u"Folders"_s, u"rtl"_s}));
    QVERIFY(isMarked({u"uart"_s, u"Properties"_s, u"p"_s}));
    fixture->session.manager()->setActiveDesign(uart->id(u"."_s));
    uart->setActiveFiles({});
    QVERIFY(fixture->follow());
    QVERIFY(!isMarked({u"fifo"_s}) && isMarked({u"uart"_s}));
    QVERIFY(!isMarked({u"uart"_s, u"Files"_s, u"rtl"_s, u"a.v"_s}));
}

void tst_DesignTreeModel::tellsOfTheState()
{
    IDesign *uart = fixture->makeDesign(u"uart"_s);
    const auto state = [this](const QStringList &path) {
        return DesignTreeFixture::textOf(fixture->row(path), StateColumn);
    };
    QCOMPARE(state({u"uart"_s}), u"Active"_s);
    uart->setDescription(u"new"_s);
    QVERIFY(fixture->follow());
    QCOMPARE(state({u"uart"_s}), u"Active, Modified"_s);
    QVERIFY(uart->saveToComponentFile(nullptr));
    QVERIFY(fixture->follow());
    QCOMPARE(state({u"uart"_s}), u"Active"_s);
    uart->addProperty(u"fixed"_s, {}, 1, true, nullptr);
    uart->setBusy(true, QString(), true);
    QVERIFY(fixture->follow());
    QCOMPARE(state({u"uart"_s}), u"Active, Modified, Busy"_s);
    QCOMPARE(state({u"uart"_s, u"Properties"_s, u"fixed"_s}), u"Read-only"_s);
    uart->setReadOnly(true);
    QVERIFY(fixture->follow());
    QCOMPARE(state({u"uart"_s}), u"Active, Modified, Read-only, Busy"_s);
}

void tst_DesignTreeModel::tellsMoreByTheMouse()
{
    IDesign *uart = fixture->makeDesign(u"uart"_s);
    uart->setAuthor(u"Ann"_s);
    uart->setDescription(u"Serial"_s);
    uart->addFile(u"rtl/a.v"_s, QString(), true, nullptr);
    QVERIFY(fixture->follow());
    const auto told = [this](const QStringList &path) {
        return fixture->row(path).data(Qt::ToolTipRole).toString();
    };
    const QString folder = fixture->session.designs(u"uart"_s);
    QCOMPARE(told({u"uart"_s}), u"local.global.uart.1.0\n"_s + folder + u"\nAuthor: Ann\nSerial"_s);
    QCOMPARE(told({u"uart"_s, u"Files"_s, u"rtl"_s, u"a.v"_s}), folder + u"/rtl/a.v"_s);
    QCOMPARE(told({u"uart"_s, u"Folders"_s, u"rtl"_s}), folder + u"/rtl"_s);
}

// Most rows of a large design are never looked at.
void tst_DesignTreeModel::asksOnlyForWhatIsShown()
{
    Counting counting;
    fixture->view()->setItemDelegate(&counting);
    IDesign *uart = fixture->makeDesign(u"uart"_s);
    ChangeBracket::instance()->open();
    for (int i = 0; i < 10'000; ++i)
        uart->addFile(u"f%1.v"_s.arg(i), QString(), true, nullptr);
    ChangeBracket::instance()->close();
    QVERIFY(fixture->follow());
    fixture->view()->expandAll();
    counting.asked.clear();
    fixture->view()->grab();
    const int height = fixture->view()->visualRect(fixture->row({u"uart"_s})).height();
    const int visible = fixture->view()->viewport()->height() / height + 2;
    QVERIFY(!counting.asked.isEmpty());
    QVERIFY2(counting.asked.size() <= visible, qPrintable(QString::number(counting.asked.size())));
}

TEST_CLASS(tst_DesignTreeModel)
#include "tst_DesignTreeModel.moc"
