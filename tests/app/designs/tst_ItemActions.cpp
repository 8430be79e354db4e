#include "tests/app/designs/Answer.h"
#include "tests/app/designs/ItemsTest.h"
#include "tests/TestClass.h"

#include <Qtilities/QtilitiesCategory.h>

#include <QClipboard>
#include <QInputDialog>

using namespace Qt::Literals::StringLiterals;

// What users do with files, folders and properties by menus and keys.
class tst_ItemActions : public ItemsTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { fixture.reset(); }

    void menusOfItems_data();
    void menusOfItems();
    void readOnlyDesignsTakeNoChange();
    void opensSeveralFiles();
    void activates();
    void setsTheCategory();
    void copiesPathsAndValues();
    void survivesWhatGoesWhileAMenuIsOpen();
};

void tst_ItemActions::menusOfItems_data()
{
    QTest::addColumn<QStringList>("path");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("menu-1 file") << QStringList {u"Files"_s, u"rtl"_s, u"a.v"_s}
                                 << QStringList {u"Open"_s,
                                                 u"Rename"_s,
                                                 u"Set Active"_s,
                                                 u"Add to Active"_s,
                                                 u"(Take from Active)"_s,
                                                 u"Category..."_s,
                                                 u"Shared Properties..."_s,
                                                 u"Cut"_s,
                                                 u"(Paste)"_s,
                                                 u"Copy Path"_s,
                                                 u"Open in File Manager"_s,
                                                 u"Remove from Design..."_s,
                                                 u"Delete from Disk..."_s,
                                                 u"Copy Names"_s};
    QTest::newRow("menu-2 folder")
        << QStringList {u"Folders"_s, u"rtl"_s}
        << QStringList {u"Set Active"_s,           u"Add to Active"_s,
                        u"(Take from Active)"_s,   u"Category..."_s,
                        u"Shared Properties..."_s, u"Copy Path"_s,
                        u"Open in File Manager"_s, u"Remove from Design..."_s,
                        u"Delete from Disk..."_s,  u"Copy Names"_s};
    QTest::newRow("menu-3 property")
        << QStringList {u"Properties"_s, u"p"_s} << QStringList {u"Edit Value"_s,
                                                                 u"Set Active"_s,
                                                                 u"Add to Active"_s,
                                                                 u"(Take from Active)"_s,
                                                                 u"Shared Properties..."_s,
                                                                 u"Copy Value"_s,
                                                                 u"Remove from Design..."_s,
                                                                 u"Copy Names"_s};
    QTest::newRow("menu-4 node") << QStringList {u"Files"_s, u"rtl"_s}
                                 << QStringList {u"Add Files..."_s, u"Add New File..."_s,
                                                 u"(Paste)"_s,      u"Copy Names"_s,
                                                 u"Expand All"_s,   u"Collapse All"_s};
    QTest::newRow("menu-5 folders")
        << QStringList {u"Folders"_s}
        << QStringList {u"Add Folder..."_s, u"Copy Names"_s, u"Expand All"_s, u"Collapse All"_s};
    QTest::newRow("menu-6 properties")
        << QStringList {u"Properties"_s}
        << QStringList {u"Add Property..."_s, u"Copy Names"_s, u"Expand All"_s, u"Collapse All"_s};
}

void tst_ItemActions::menusOfItems()
{
    QFETCH(const QStringList, path);
    QMenu *menu = fixture->menu(fixture->row(QStringList {u"uart"_s} + path));
    QTEST(DesignTreeFixture::entries(menu), "expected");
}

void tst_ItemActions::readOnlyDesignsTakeNoChange()
{
    uart->setReadOnly(true);
    QVERIFY(fixture->follow());
    QCOMPARE(
        DesignTreeFixture::entries(fixture->menu(file(u"a.v"_s))),
        (QStringList {u"Open"_s, u"(Rename)"_s, u"Set Active"_s, u"Add to Active"_s,
                      u"(Take from Active)"_s, u"(Category...)"_s, u"Shared Properties..."_s,
                      u"(Cut)"_s, u"(Paste)"_s, u"Copy Path"_s, u"Open in File Manager"_s,
                      u"(Remove from Design...)"_s, u"(Delete from Disk...)"_s, u"Copy Names"_s}));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    press(Qt::Key_Delete);
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(paths().size(), 3);
}

void tst_ItemActions::opensSeveralFiles()
{
    fixture->select(file(u"a.v"_s));
    fixture->select(file(u"c.v"_s), Qt::ShiftModifier);
    QVERIFY(DesignTreeFixture::choose(fixture->menu(file(u"b.v"_s)), u"Open"_s));
    QCOMPARE(fixture->editors.opened,
             (QStringList {in(u"rtl/a.v"_s), in(u"rtl/b.v"_s), in(u"rtl/c.v"_s)}));
}

void tst_ItemActions::activates()
{
    const auto active = [this] {
        QStringList names;
        for (const auto &each : uart->activeFiles())
            names.append(each->fileName());
        return names.join(u' ');
    };
    const auto choose = [this](const QString &name, const QString &text) {
        return DesignTreeFixture::choose(fixture->menu(file(name)), text) && fixture->follow();
    };
    QVERIFY(choose(u"a.v"_s, u"Set Active"_s));
    QCOMPARE(active(), u"a.v"_s);
    QVERIFY(choose(u"c.v"_s, u"Add to Active"_s));
    QCOMPARE(active(), u"a.v c.v"_s);
    QVERIFY(choose(u"a.v"_s, u"Take from Active"_s));
    QCOMPARE(active(), u"c.v"_s);
    QVERIFY(choose(u"b.v"_s, u"Set Active"_s));
    QCOMPARE(active(), u"b.v"_s);
    QVERIFY(DesignTreeFixture::choose(
        fixture->menu(fixture->row({u"uart"_s, u"Folders"_s, u"rtl"_s})), u"Set Active"_s));
    QCOMPARE(uart->activeFolders().size(), 1);
    QCOMPARE(active(), u"b.v"_s);
}

void tst_ItemActions::setsTheCategory()
{
    const Answer answer([](QDialog *dialog) {
        auto *input = qobject_cast<QInputDialog *>(dialog);
        input->setTextValue(u"My::Own"_s);
        input->accept();
    });
    fixture->select(file(u"a.v"_s));
    fixture->select(file(u"b.v"_s), Qt::ControlModifier);
    QVERIFY(DesignTreeFixture::choose(fixture->menu(file(u"b.v"_s)), u"Category..."_s));
    QVERIFY(answer.isGiven());
    const auto category = [this](const QString &name) {
        return uart->fileByActualPath(in(u"rtl/"_s + name), false)->category().toString(u"::"_s);
    };
    QCOMPARE(category(u"a.v"_s), u"My::Own"_s);
    QCOMPARE(category(u"b.v"_s), u"My::Own"_s);
    QCOMPARE(category(u"c.v"_s), u"HDL::Verilog"_s);
}

void tst_ItemActions::copiesPathsAndValues()
{
    fixture->select(file(u"a.v"_s));
    fixture->select(file(u"c.v"_s), Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), in(u"rtl/a.v"_s) + u'\n' + in(u"rtl/c.v"_s));
    fixture->select(fixture->row({u"uart"_s, u"Properties"_s, u"p"_s}));
    press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"8"_s);
}

void tst_ItemActions::survivesWhatGoesWhileAMenuIsOpen()
{
    QMenu *menu = fixture->menu(file(u"b.v"_s));
    QVERIFY(menu);
    QVERIFY(uart->removeFile(u"rtl/b.v"_s));
    QVERIFY(fixture->follow());
    QVERIFY(DesignTreeFixture::choose(menu, u"Open"_s));
    QCOMPARE(fixture->editors.opened, QStringList());

    menu = fixture->menu(file(u"a.v"_s));
    QVERIFY(fixture->session.manager()->closeDesign(uart->id(u"."_s), false));
    QVERIFY(fixture->follow());
    QVERIFY(DesignTreeFixture::choose(menu, u"Set Active"_s));
    QVERIFY(!QApplication::activeModalWidget());
}

TEST_CLASS(tst_ItemActions)
#include "tst_ItemActions.moc"
