#include "tests/app/designs/Answer.h"
#include "tests/app/designs/DesignTreeFixture.h"
#include "tests/TestClass.h"

#include <MorvalenCore/ChangeBracket.h>

#include <QClipboard>
#include <QFileDialog>
#include <QInputDialog>
#include <QPlainTextEdit>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::ChangeBracket;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;

// What users do with open designs by menus and keys.
class tst_DesignActions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { fixture.reset(); }

    void menuOfADesign();
    void menuOfAReadOnlyDesign();
    void menuOfSeveralDesigns();
    void activates();
    void saves();
    void tellsWhatIsNotSaved();
    void savesACopy();
    void renames_data();
    void renames();
    void copiesIds();
    void closes_data();
    void closes();
    void closesNothingUnderAScript();
    void closesAndDeletes();
    void closesAndDeletesNothingWhenTheUserSaysNo();
    void cleans();
    void assignsAFolder();
    void opensTheMenuByKey();

private:
    QModelIndex row(const QString &name) const { return fixture->row({name}); }
    bool choose(const QString &text)
    {
        return DesignTreeFixture::choose(fixture->menu(row(u"uart"_s)), text);
    }
    static QMessageBox *box()
    {
        return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    }

    std::optional<DesignTreeFixture> fixture;
    IDesign *uart = nullptr;
};

void tst_DesignActions::init()
{
    fixture.emplace();
    QVERIFY(fixture->shown);
    uart = fixture->session.create(u"uart"_s);
    QVERIFY(uart);
    QVERIFY(fixture->follow());
}

void tst_DesignActions::menuOfADesign()
{
    QVERIFY(fixture->session.create(u"fifo"_s));
    QVERIFY(fixture->follow());
    QCOMPARE(DesignTreeFixture::entries(fixture->menu(row(u"uart"_s))),
             (QStringList {u"Set Active"_s,
                           u"Save"_s,
                           u"Save a Copy..."_s,
                           u"Clean Generated Files..."_s,
                           u"Clean Generated Files of All Versions..."_s,
                           u"(Assign a Working Folder)"_s,
                           u"Open in File Manager"_s,
                           u"Copy Id"_s,
                           u"Rename..."_s,
                           u"Properties of the Design..."_s,
                           u"Close"_s,
                           u"Close and Delete Working Folder..."_s,
                           u"Add Files..."_s,
                           u"Add New File..."_s,
                           u"(Paste)"_s,
                           u"Add Folder..."_s,
                           u"Add Property..."_s,
                           u"Copy Names"_s,
                           u"Expand All"_s,
                           u"Collapse All"_s}));
}

void tst_DesignActions::menuOfAReadOnlyDesign()
{
    uart->setReadOnly(true);
    QVERIFY(fixture->follow());
    QCOMPARE(DesignTreeFixture::entries(fixture->menu(row(u"uart"_s))),
             (QStringList {u"(Set Active)"_s,
                           u"Save"_s,
                           u"Save a Copy..."_s,
                           u"(Clean Generated Files...)"_s,
                           u"(Clean Generated Files of All Versions...)"_s,
                           u"(Assign a Working Folder)"_s,
                           u"Open in File Manager"_s,
                           u"Copy Id"_s,
                           u"(Rename...)"_s,
                           u"Properties of the Design..."_s,
                           u"Close"_s,
                           u"Close and Delete Working Folder..."_s,
                           u"(Add Files...)"_s,
                           u"(Add New File...)"_s,
                           u"(Paste)"_s,
                           u"(Add Folder...)"_s,
                           u"(Add Property...)"_s,
                           u"Copy Names"_s,
                           u"Expand All"_s,
                           u"Collapse All"_s}));
}

void tst_DesignActions::menuOfSeveralDesigns()
{
    QVERIFY(fixture->session.create(u"fifo"_s));
    QVERIFY(fixture->follow());
    fixture->select(row(u"uart"_s));
    fixture->select(row(u"fifo"_s), Qt::ControlModifier);
    QCOMPARE(DesignTreeFixture::entries(fixture->menu(row(u"uart"_s))),
             (QStringList {u"Save"_s, u"Open in File Manager"_s, u"Copy Id"_s, u"Close"_s,
                           u"Close and Delete Working Folder..."_s, u"Copy Names"_s,
                           u"Expand All"_s, u"Collapse All"_s}));
}

void tst_DesignActions::activates()
{
    QVERIFY(fixture->session.create(u"fifo"_s));
    QVERIFY(fixture->follow());
    QVERIFY(choose(u"Set Active"_s));
    QCOMPARE(DesignManager::instance()->activeDesigns(), QList<IDesign *> {uart});
}

void tst_DesignActions::saves()
{
    uart->setAuthor(u"Ann"_s);
    QVERIFY(choose(u"Save"_s));
    QVERIFY(!uart->isModified());
    QVERIFY(SessionFixture::read(uart->componentFileName()).contains("Ann"));
    QVERIFY(!box());
}

void tst_DesignActions::tellsWhatIsNotSaved()
{
    uart->setAuthor(u"Ann"_s);
    const QString folder = uart->workingFolderPath();
    QVERIFY(QDir().rename(folder, folder + u".away"_s));
    QVERIFY(choose(u"Save"_s));
    QVERIFY(box());
    QCOMPARE(box()->windowTitle(), u"Not Saved"_s);
    QVERIFY2(box()->text().contains(folder), qPrintable(box()->text()));
    QTest::keyClick(box(), Qt::Key_Return);
    QVERIFY(QDir().rename(folder + u".away"_s, folder));
}

void tst_DesignActions::savesACopy()
{
    const QString copy = fixture->session.path(u"copy.xml"_s);
    const Answer answer([&copy](QDialog *dialog) {
        auto *files = qobject_cast<QFileDialog *>(dialog);
        files->findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(copy);
        QTest::keyClick(files->findChild<QLineEdit *>(u"fileNameEdit"_s), Qt::Key_Return);
    });
    QVERIFY(choose(u"Save a Copy..."_s));
    QVERIFY(answer.isGiven());
    QVERIFY(SessionFixture::read(copy).contains("uart"));
    QCOMPARE(uart->componentFileName(), uart->workingFolderPath() + u"/component.xml"_s);
}

void tst_DesignActions::renames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("error");
    QTest::newRow("rename-1 another name") << u"serial"_s << u"serial"_s << QString();
    QTest::newRow("rename-2 its own") << u"uart"_s << u"uart"_s << QString();
    QTest::newRow("rename-3 that of another")
        << u"fifo"_s << u"uart"_s << u"A design named \"fifo\" is open already"_s;
}

void tst_DesignActions::renames()
{
    QFETCH(const QString, name);
    QFETCH(const QString, error);
    QVERIFY(fixture->session.create(u"fifo"_s));
    QVERIFY(fixture->follow());
    const Answer answer([&name](QDialog *dialog) {
        qobject_cast<QInputDialog *>(dialog)->setTextValue(name);
        dialog->accept();
    });
    fixture->select(row(u"uart"_s));
    QTest::keyClick(fixture->view(), Qt::Key_F2);
    QVERIFY(answer.isGiven());
    QTEST(uart->name(), "expected");
    QCOMPARE(box() ? box()->text() : QString(), error);
    if (box())
        QTest::keyClick(box(), Qt::Key_Escape);
}

void tst_DesignActions::copiesIds()
{
    QVERIFY(choose(u"Copy Id"_s));
    QCOMPARE(QGuiApplication::clipboard()->text(), u"local.global.uart.1.0"_s);
}

void tst_DesignActions::closes_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("isClosed");
    QTest::newRow("close-1 saves") << u"Save and Close"_s << true;
    QTest::newRow("close-2 not at all") << u"Cancel"_s << false;
}

void tst_DesignActions::closes()
{
    QFETCH(const QString, button);
    QFETCH(const bool, isClosed);
    uart->setAuthor(u"Ann"_s);
    const QString file = uart->componentFileName();
    const Answer answer(button);
    QVERIFY(choose(u"Close"_s));
    QVERIFY(answer.isGiven());
    QVERIFY(fixture->follow());
    QCOMPARE(DesignManager::instance()->openDesignIds().isEmpty(), isClosed);
    QCOMPARE(SessionFixture::read(file).contains("Ann"), isClosed);
}

void tst_DesignActions::closesNothingUnderAScript()
{
    ChangeBracket::instance()->open();
    QVERIFY(choose(u"Close"_s));
    QVERIFY(box());
    QCOMPARE(box()->text(), u"A script is changing the designs."_s);
    QTest::keyClick(box(), Qt::Key_Escape);
    ChangeBracket::instance()->close();
    QCOMPARE(DesignManager::instance()->openDesignIds().size(), 1);
}

void tst_DesignActions::closesAndDeletes()
{
    const QString folder = uart->workingFolderPath();
    const Answer answer(u"Delete for Good"_s);
    QVERIFY(choose(u"Close and Delete Working Folder..."_s));
    QCOMPARE(answer.question,
             u"Close and delete these working folders, with everything in them, for good?"_s);
    QCOMPARE(answer.lines, QStringList {folder});
    QVERIFY(!QFile::exists(folder));
    QCOMPARE(DesignManager::instance()->openDesignIds(), QStringList());
}

void tst_DesignActions::closesAndDeletesNothingWhenTheUserSaysNo()
{
    const QString file = uart->componentFileName();
    // Return presses what comes without thinking.
    const Answer answer([](QDialog *dialog) { QTest::keyClick(dialog, Qt::Key_Return); });
    QVERIFY(choose(u"Close and Delete Working Folder..."_s));
    QVERIFY(answer.isGiven());
    QVERIFY(QFile::exists(file));
    QCOMPARE(DesignManager::instance()->openDesignIds().size(), 1);
}

void tst_DesignActions::cleans()
{
    QVERIFY(choose(u"Clean Generated Files..."_s));
    QDialog *report = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    QVERIFY(report);
    QCOMPARE(report->findChild<QPlainTextEdit *>()->toPlainText(),
             u"Nothing to clean in design \"uart\""_s);
    QTest::keyClick(report, Qt::Key_Escape);
    QTRY_VERIFY(!QApplication::activeModalWidget());
}

void tst_DesignActions::assignsAFolder()
{
    std::unique_ptr<QObject> object(SessionFixture::factory()->createInstance(
        {u"Design Factory"_s, u"Custom Design"_s, u"bare"_s}));
    auto *bare = qobject_cast<IDesign *>(object.get());
    QVERIFY(SessionFixture::manager()->attachDesign(bare, true, 0));
    object.release();
    QVERIFY(fixture->follow());
    QMenu *menu = fixture->menu(row(u"bare"_s));
    const QStringList entries = DesignTreeFixture::entries(menu);
    QVERIFY(entries.contains(u"(Save)"_s) && entries.contains(u"(Add Files...)"_s));
    QVERIFY(DesignTreeFixture::choose(menu, u"Assign a Working Folder"_s));
    QCOMPARE(bare->workingFolderPath(), fixture->session.designs(u"bare"_s));
    QVERIFY(QFile::exists(bare->componentFileName()));
}

void tst_DesignActions::opensTheMenuByKey()
{
    fixture->select(row(u"uart"_s));
    QMenu *menu = fixture->menu();
    QVERIFY(menu);
    QVERIFY(DesignTreeFixture::entries(menu).contains(u"Copy Id"_s));
    QTest::keyClick(menu, Qt::Key_Escape);
}

TEST_CLASS(tst_DesignActions)
#include "tst_DesignActions.moc"
