#include "tests/app/designs/HardwareTreeTest.h"
#include "tests/TestClass.h"

#include <QSignalSpy>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;

// What users do in the tree with keys and the mouse.
class tst_DesignTreeUse : public HardwareTreeTest
{
    Q_OBJECT

private Q_SLOTS:
    void returnOpensAFile();
    void returnOpensReadOnlyFiles();
    void tellsWhyAFileIsNotOpened();
    void activatesDesigns_data();
    void activatesDesigns();
    void asksForAConfiguration();
    void groupsOpenAndClose();
    void findsByTyping();
    void editsValues_data();
    void editsValues();
    void editsNoReadOnlyValue();
};

void tst_DesignTreeUse::returnOpensAFile()
{
    add({u"rtl/a.v"_s, u"rtl/b.v"_s});
    select(rtl(u"b.v"_s));
    press(Qt::Key_Return);
    const QString folder = uart->workingFolderPath();
    QCOMPARE(fixture->editors.opened, QStringList {folder + u"/rtl/b.v"_s});
    QTest::mouseDClick(fixture->view()->viewport(), Qt::LeftButton, {},
                       fixture->centre(rtl(u"a.v"_s)));
    QCOMPARE(fixture->editors.opened,
             (QStringList {folder + u"/rtl/b.v"_s, folder + u"/rtl/a.v"_s}));
}

void tst_DesignTreeUse::returnOpensReadOnlyFiles()
{
    add({u"a.v"_s});
    uart->setReadOnly(true);
    QVERIFY(fixture->follow());
    select(rtl(u"a.v"_s));
    press(Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(fixture->editors.opened,
             QStringList {uart->workingFolderPath() + u"/a.v (read-only)"_s});
}

void tst_DesignTreeUse::tellsWhyAFileIsNotOpened()
{
    add({u"a.v"_s});
    fixture->editors.refusal = u"It is too large"_s;
    select(rtl(u"a.v"_s));
    press(Qt::Key_Return);
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    QVERIFY(box);
    QCOMPARE(box->text(), u"It is too large"_s);
    QTest::keyClick(box, Qt::Key_Escape);
}

void tst_DesignTreeUse::activatesDesigns_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("activate-1 with the mouse") << true;
    QTest::newRow("activate-2 with the keyboard") << false;
}

void tst_DesignTreeUse::activatesDesigns()
{
    QFETCH(const bool, byMouse);
    const IDesign *fifo = fixture->session.create(u"fifo"_s);
    QVERIFY(fixture->follow());
    QCOMPARE(fixture->session.manager()->activeDesigns().first(), fifo);
    select(fixture->row({u"uart"_s}));
    if (byMouse)
        QTest::mouseDClick(fixture->view()->viewport(), Qt::LeftButton, {},
                           fixture->centre(fixture->row({u"uart"_s})));
    else
        press(Qt::Key_Return);
    QCOMPARE(fixture->session.manager()->activeDesigns().first(), uart);
    QVERIFY(fixture->view()->isExpanded(fixture->row({u"uart"_s})));
}

void tst_DesignTreeUse::asksForAConfiguration()
{
    const QString file = fixture->session.path(u"built/component.xml"_s);
    SessionFixture::write(file, SessionFixture::read(QStringLiteral(COUNTER_COMPONENT)));
    QVERIFY(fixture->session.open(file));
    QVERIFY(fixture->follow());
    const QSignalSpy asked(&fixture->tree, &DesignTree::configurationActivated);
    const QStringList builds {u"counter"_s, u"Build Configurations"_s};
    select(fixture->row(builds + QStringList {u"Lint"_s}));
    press(Qt::Key_Return);
    QCOMPARE(asked.size(), 1);
    QCOMPARE(asked.first().at(0).toString(), u"morvalen.example.logic.counter.1.0"_s);
    QCOMPARE(asked.first().at(1).toString(), u"Lint"_s);
}

void tst_DesignTreeUse::groupsOpenAndClose()
{
    const QModelIndex folders = fixture->row({u"uart"_s, u"Folders"_s});
    select(folders);
    QVERIFY(fixture->view()->isExpanded(folders));
    press(Qt::Key_Return);
    QVERIFY(!fixture->view()->isExpanded(folders));
    QTest::mouseDClick(fixture->view()->viewport(), Qt::LeftButton, {}, fixture->centre(folders));
    QVERIFY(fixture->view()->isExpanded(folders));
    press(Qt::Key_Left);
    QVERIFY(!fixture->view()->isExpanded(folders));
}

void tst_DesignTreeUse::findsByTyping()
{
    add({u"alpha.v"_s, u"beta.v"_s});
    select(fixture->row({u"uart"_s}));
    QTest::keyClicks(fixture->view(), u"bet"_s);
    QCOMPARE(fixture->view()->currentIndex().data().toString(), u"beta.v"_s);
}

void tst_DesignTreeUse::editsValues_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QVariant>("expected");
    QTest::newRow("edit-1 a number") << QVariant(8) << u"16"_s << QVariant(16);
    QTest::newRow("edit-2 no number") << QVariant(8) << u"many"_s << QVariant(8);
    QTest::newRow("edit-3 a text") << QVariant(u"a"_s) << u"b c"_s << QVariant(u"b c"_s);
    QTest::newRow("edit-4 no text") << QVariant(u"a"_s) << QString() << QVariant(u""_s);
    QTest::newRow("edit-5 a fraction") << QVariant(0.5) << u"1.5"_s << QVariant(1.5);
    QTest::newRow("edit-6 a truth") << QVariant(false) << u"t"_s << QVariant(true);
}

void tst_DesignTreeUse::editsValues()
{
    QFETCH(const QVariant, value);
    QFETCH(const QString, typed);
    uart->addProperty(u"p"_s, {}, value, false, nullptr);
    QVERIFY(fixture->follow());
    select(fixture->row({u"uart"_s, u"Properties"_s, u"p"_s}));
    press(Qt::Key_F2);
    QWidget *editor = fixture->view()->viewport()->focusWidget();
    QTRY_VERIFY((editor = fixture->view()->viewport()->focusWidget()));
    if (auto *line = qobject_cast<QLineEdit *>(editor))
        line->selectAll();
    if (typed.isEmpty())
        QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClicks(editor, typed);
    QTest::keyClick(editor, Qt::Key_Return);
    // What was given is taken once control is back in the event loop.
    QCoreApplication::processEvents();
    QTEST(uart->propertyByName(u"p"_s)->propertyData().value(), "expected");
}

void tst_DesignTreeUse::editsNoReadOnlyValue()
{
    uart->addProperty(u"p"_s, {}, 1, true, nullptr);
    QVERIFY(fixture->follow());
    const QModelIndex index = fixture->row({u"uart"_s, u"Properties"_s, u"p"_s});
    select(index);
    press(Qt::Key_Return);
    press(Qt::Key_F2);
    QVERIFY(!fixture->view()->indexWidget(index.siblingAtColumn(DetailsColumn)));
    QVERIFY(!fixture->view()->isPersistentEditorOpen(index.siblingAtColumn(DetailsColumn)));
    QVERIFY(fixture->view()->hasFocus());
}

TEST_CLASS(tst_DesignTreeUse)
#include "tst_DesignTreeUse.moc"
