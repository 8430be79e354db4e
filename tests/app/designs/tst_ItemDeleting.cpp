#include "tests/app/designs/Answer.h"
#include "tests/app/designs/ItemsTest.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;

// How users take files, folders and properties out of designs, and delete them.
class tst_ItemDeleting : public ItemsTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { fixture.reset(); }

    void removesAfterAsking();
    void removesNothingWhenTheUserSaysNo();
    void removesSeveralKinds();
    void deletesFromDisk_data();
    void deletesFromDisk();
    void deletesFolders();
    void tellsWhatIsNotDeleted();
    void deletesNoOtherPathThanWasNamed();
    void survivesWhatGoesWhileAQuestionIsOpen();
};

void tst_ItemDeleting::removesAfterAsking()
{
    const Answer answer(u"Remove"_s);
    fixture->select(file(u"b.v"_s));
    press(Qt::Key_Delete);
    QCOMPARE(answer.question, u"Remove this item from its design? Nothing is deleted from disk."_s);
    QCOMPARE(answer.lines, QStringList {in(u"rtl/b.v"_s)});
    QCOMPARE(paths(), (QStringList {u"a.v"_s, u"c.v"_s}));
    QVERIFY(QFile::exists(in(u"rtl/b.v"_s)));
}

void tst_ItemDeleting::removesNothingWhenTheUserSaysNo()
{
    const Answer answer([](QDialog *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    fixture->select(file(u"b.v"_s));
    press(Qt::Key_Delete);
    QVERIFY(answer.isGiven());
    QCOMPARE(paths().size(), 3);
}

void tst_ItemDeleting::removesSeveralKinds()
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

void tst_ItemDeleting::deletesFromDisk_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("deletes");
    QTest::newRow("delete-1 for good") << u"Delete for Good"_s << true;
    QTest::newRow("delete-2 not at all") << u"Cancel"_s << false;
}

void tst_ItemDeleting::deletesFromDisk()
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

void tst_ItemDeleting::deletesFolders()
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
void tst_ItemDeleting::tellsWhatIsNotDeleted()
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

void tst_ItemDeleting::deletesNoOtherPathThanWasNamed()
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

void tst_ItemDeleting::survivesWhatGoesWhileAQuestionIsOpen()
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

TEST_CLASS(tst_ItemDeleting)
#include "tst_ItemDeleting.moc"
