#include "tests/app/designs/Answer.h"
#include "tests/app/designs/DesignTreeFixture.h"

#include <Qtilities/QtilitiesCategory.h>

#include <QClipboard>
#include <QInputDialog>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignFile;
using MorvalenCore::Interfaces::IDesign;

// What users do with files, folders and properties by menus and keys.
class tst_ItemActions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { fixture.reset(); }

    void menusOfItems_data();
    void menusOfItems();
    void readOnlyDesignsTakeNoChange();
    void opensSeveralFiles();
    void activates();
    void setsTheCategory();
    void copiesPathsAndValues();
    void removesAfterAsking();
    void removesNothingWhenTheUserSaysNo();
    void removesSeveralKinds();
    void deletesFromDisk_data();
    void deletesFromDisk();
    void deletesFolders();
    void tellsWhatIsNotDeleted();
    void deletesNoOtherPathThanWasNamed();
    void survivesWhatGoesWhileAMenuIsOpen();
    void survivesWhatGoesWhileAQuestionIsOpen();

private:
    QString in(const QString &name) const { return uart->workingFolderPath() + u'/' + name; }
    QModelIndex file(const QString &name) const
    {
        return fixture->row({u"uart"_s, u"Files"_s, u"rtl"_s, name});
    }
    QStringList paths() const
    {
        QStringList all;
        for (const DesignFile *each : uart->filesUnderNode(QString(), true))
            all.append(each->fileName());
        return all;
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(fixture->view(), key, modifiers);
    }

    std::optional<DesignTreeFixture> fixture;
    IDesign *uart = nullptr;
};

void tst_ItemActions::init()
{
    fixture.emplace();
    QVERIFY(fixture->shown);
    uart = fixture->session.create(u"uart"_s, u"Hardware Design"_s, u"Hardware"_s);
    for (const QString &name : {u"a.v"_s, u"b.v"_s, u"c.v"_s}) {
        SessionFixture::write(in(u"rtl/"_s + name), "1");
        QVERIFY(uart->addFile(u"rtl/"_s + name, QString(), true, nullptr));
    }
    QVERIFY(uart->addProperty(u"p"_s, {}, 8, false, nullptr));
    QVERIFY(fixture->follow());
}

void tst_ItemActions::menusOfItems_data()
{
    QTest::addColumn<QStringList>("path");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("menu-1 file") << QStringList {u"Files"_s, u"rtl"_s, u"a.v"_s}
                                 << QStringList {u"Open"_s,
                                                 u"Set Active"_s,
                                                 u"Add to Active"_s,
                                                 u"(Take from Active)"_s,
                                                 u"Category..."_s,
                                                 u"Shared Properties..."_s,
                                                 u"Copy Path"_s,
                                                 u"Open in File Manager"_s,
                                                 u"Remove from Design..."_s,
                                                 u"Delete from Disk..."_s};
    QTest::newRow("menu-2 folder")
        << QStringList {u"Folders"_s, u"rtl"_s}
        << QStringList {
               u"Set Active"_s,           u"Add to Active"_s,         u"(Take from Active)"_s,
               u"Category..."_s,          u"Shared Properties..."_s,  u"Copy Path"_s,
               u"Open in File Manager"_s, u"Remove from Design..."_s, u"Delete from Disk..."_s};
    QTest::newRow("menu-3 property")
        << QStringList {u"Properties"_s, u"p"_s}
        << QStringList {u"Edit Value"_s,           u"Set Active"_s,           u"Add to Active"_s,
                        u"(Take from Active)"_s,   u"Shared Properties..."_s, u"Copy Value"_s,
                        u"Remove from Design..."_s};
    QTest::newRow("menu-4 node") << QStringList {u"Files"_s, u"rtl"_s}
                                 << QStringList {u"Add Files..."_s, u"Add New File..."_s};
    QTest::newRow("menu-5 folders")
        << QStringList {u"Folders"_s} << QStringList {u"Add Folder..."_s};
    QTest::newRow("menu-6 properties")
        << QStringList {u"Properties"_s} << QStringList {u"Add Property..."_s};
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
    QCOMPARE(DesignTreeFixture::entries(fixture->menu(file(u"a.v"_s))),
             (QStringList {u"Open"_s, u"Set Active"_s, u"Add to Active"_s, u"(Take from Active)"_s,
                           u"(Category...)"_s, u"Shared Properties..."_s, u"Copy Path"_s,
                           u"Open in File Manager"_s, u"(Remove from Design...)"_s,
                           u"(Delete from Disk...)"_s}));
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

void tst_ItemActions::removesAfterAsking()
{
    const Answer answer(u"Remove"_s);
    fixture->select(file(u"b.v"_s));
    press(Qt::Key_Delete);
    QCOMPARE(answer.question, u"Remove this item from its design? Nothing is deleted from disk."_s);
    QCOMPARE(answer.lines, QStringList {in(u"rtl/b.v"_s)});
    QCOMPARE(paths(), (QStringList {u"a.v"_s, u"c.v"_s}));
    QVERIFY(QFile::exists(in(u"rtl/b.v"_s)));
}

void tst_ItemActions::removesNothingWhenTheUserSaysNo()
{
    const Answer answer([](QDialog *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    fixture->select(file(u"b.v"_s));
    press(Qt::Key_Delete);
    QVERIFY(answer.isGiven());
    QCOMPARE(paths().size(), 3);
}

void tst_ItemActions::removesSeveralKinds()
{
    const Answer answer(u"Remove"_s);
    fixture->select(file(u"a.v"_s));
    fixture->select(fixture->row({u"uart"_s, u"Folders"_s, u"documents"_s}), Qt::ControlModifier);
    fixture->select(fixture->row({u"uart"_s, u"Properties"_s, u"p"_s}), Qt::ControlModifier);
    press(Qt::Key_Delete);
    QCOMPARE(answer.lines, (QStringList {in(u"rtl/a.v"_s), in(u"documents"_s), u"p"_s}));
    QCOMPARE(paths(), (QStringList {u"b.v"_s, u"c.v"_s}));
    QCOMPARE(uart->folders().size(), 3);
    QVERIFY(uart->properties().isEmpty());
}

void tst_ItemActions::deletesFromDisk_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("deletes");
    QTest::newRow("delete-1 for good") << u"Delete for Good"_s << true;
    QTest::newRow("delete-2 not at all") << u"Cancel"_s << false;
}

void tst_ItemActions::deletesFromDisk()
{
    QFETCH(const QString, button);
    QFETCH(const bool, deletes);
    const Answer answer(button);
    fixture->select(file(u"a.v"_s));
    fixture->select(file(u"b.v"_s), Qt::ControlModifier);
    press(Qt::Key_Delete, Qt::ShiftModifier);
    QCOMPARE(answer.lines, (QStringList {in(u"rtl/a.v"_s), in(u"rtl/b.v"_s)}));
    QCOMPARE(QFile::exists(in(u"rtl/a.v"_s)), !deletes);
    QCOMPARE(QFile::exists(in(u"rtl/b.v"_s)), !deletes);
    QVERIFY(QFile::exists(in(u"rtl/c.v"_s)));
    QCOMPARE(paths().size(), deletes ? 1 : 3);
}

void tst_ItemActions::deletesFolders()
{
    SessionFixture::write(in(u"documents/deep/x.md"_s), "1");
    const Answer answer(u"Delete for Good"_s);
    const QModelIndex folder = fixture->row({u"uart"_s, u"Folders"_s, u"documents"_s});
    QVERIFY(DesignTreeFixture::choose(fixture->menu(folder), u"Delete from Disk..."_s));
    QCOMPARE(answer.lines, QStringList {in(u"documents"_s)});
    QVERIFY(!QFile::exists(in(u"documents"_s)));
    QCOMPARE(uart->folders().size(), 3);
}

// What lies elsewhere is not the design's to delete; it stays in the design too.
void tst_ItemActions::tellsWhatIsNotDeleted()
{
    const QString outside = fixture->session.path(u"outside.v"_s);
    SessionFixture::write(outside, "1");
    QVERIFY(uart->addFile(outside, u"rtl"_s, true, nullptr));
    QVERIFY(fixture->follow());
    {
        const Answer answer(u"Delete for Good"_s);
        fixture->select(file(u"outside.v"_s));
        press(Qt::Key_Delete, Qt::ShiftModifier);
    }
    QVERIFY(QFile::exists(outside));
    QCOMPARE(paths().size(), 4);
    const auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    QVERIFY(box);
    QCOMPARE(box->windowTitle(), u"Not Deleted"_s);
    QVERIFY2(box->text().contains(outside), qPrintable(box->text()));
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
}

void tst_ItemActions::deletesNoOtherPathThanWasNamed()
{
    const Answer answer([this](QDialog *dialog) {
        uart->fileByActualPath(in(u"rtl/a.v"_s), false)->setActualPath(in(u"rtl/x.v"_s));
        SessionFixture::write(in(u"rtl/x.v"_s), "1");
        Answer::press(dialog, u"Delete for Good"_s);
    });
    fixture->select(file(u"a.v"_s));
    press(Qt::Key_Delete, Qt::ShiftModifier);
    QVERIFY(answer.isGiven());
    QVERIFY(QFile::exists(in(u"rtl/x.v"_s)) && QFile::exists(in(u"rtl/a.v"_s)));
    QCOMPARE(paths().size(), 3);
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

void tst_ItemActions::survivesWhatGoesWhileAQuestionIsOpen()
{
    const Answer answer([this](QDialog *dialog) {
        fixture->session.closeAll();
        Answer::press(dialog, u"Remove"_s);
    });
    fixture->select(file(u"a.v"_s));
    press(Qt::Key_Delete);
    QVERIFY(answer.isGiven());
    QVERIFY(!QApplication::activeModalWidget());
}

QTEST_MAIN(tst_ItemActions)
#include "tst_ItemActions.moc"
