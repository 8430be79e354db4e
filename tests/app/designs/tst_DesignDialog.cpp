#include "app/designs/DesignDialog.h"
#include "tests/app/designs/Answer.h"
#include "tests/app/designs/DesignTreeFixture.h"
#include "tests/TestClass.h"

#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;

// What users change about a design in its dialog.
class tst_DesignDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { fixture.reset(); }

    void changesProperties();
    void changesNothingOfAReadOnlyDesign();
    void refusesABadName();
    void closesTheDialogWithItsDesign();

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
    DesignDialog *properties()
    {
        return choose(u"Properties of the Design..."_s)
            ? qobject_cast<DesignDialog *>(QApplication::activeModalWidget())
            : nullptr;
    }

    std::optional<DesignTreeFixture> fixture;
    IDesign *uart = nullptr;
};

void tst_DesignDialog::init()
{
    fixture.emplace();
    QVERIFY(fixture->shown);
    uart = fixture->session.create(u"uart"_s);
    QVERIFY(uart);
    QVERIFY(fixture->follow());
}

void tst_DesignDialog::changesProperties()
{
    DesignDialog *dialog = properties();
    QVERIFY(dialog);
    const QList<QLineEdit *> lines = dialog->findChildren<QLineEdit *>();
    QCOMPARE(lines.size(), 4);
    const QStringList texts {u"serial"_s, u"acme"_s, u"io"_s, u"Ann"_s};
    for (qsizetype i = 0; i < lines.size(); ++i) {
        lines[i]->selectAll();
        QTest::keyClicks(lines[i], texts[i]);
    }
    QTest::keyClicks(dialog->findChild<QPlainTextEdit *>(), u"Serial port"_s);
    QTest::keyClick(dialog->findChild<QCheckBox *>(), Qt::Key_Space);
    Answer::press(dialog, u"OK"_s);
    QCOMPARE(uart->id(u"."_s), u"acme.io.serial.1.0"_s);
    QCOMPARE(uart->author(), u"Ann"_s);
    QCOMPARE(uart->description(), u"Serial port"_s);
    QVERIFY(uart->isReadOnly());
    QVERIFY(!box());
}

void tst_DesignDialog::changesNothingOfAReadOnlyDesign()
{
    uart->setReadOnly(true);
    QVERIFY(fixture->follow());
    DesignDialog *dialog = properties();
    QVERIFY(dialog);
    QLineEdit *name = dialog->findChild<QLineEdit *>();
    QTest::keyClicks(name, u"x"_s);
    QCOMPARE(name->text(), u"uart"_s);
    QTest::keyClick(dialog->findChild<QCheckBox *>(), Qt::Key_Space);
    QTest::keyClicks(name, u"x"_s);
    Answer::press(dialog, u"OK"_s);
    QCOMPARE(uart->name(), u"uartx"_s);
    QVERIFY(!uart->isReadOnly());
}

void tst_DesignDialog::refusesABadName()
{
    QVERIFY(fixture->session.create(u"fifo"_s));
    QVERIFY(fixture->follow());
    DesignDialog *dialog = properties();
    QVERIFY(dialog);
    QLineEdit *name = dialog->findChild<QLineEdit *>();
    name->selectAll();
    QTest::keyClicks(name, u"fifo"_s);
    QCOMPARE(dialog->findChild<QLabel *>(u"problem"_s)->text(),
             u"A design named \"fifo\" is open already"_s);
    QTest::keyClick(dialog, Qt::Key_Return);
    QVERIFY(dialog->isVisible());
    QCOMPARE(uart->name(), u"uart"_s);
    QTest::keyClick(dialog, Qt::Key_Escape);
}

void tst_DesignDialog::closesTheDialogWithItsDesign()
{
    QPointer<DesignDialog> dialog = properties();
    QVERIFY(dialog);
    QVERIFY(DesignManager::instance()->closeDesign(uart->id(u"."_s), false));
    QTRY_VERIFY(!dialog);
}

TEST_CLASS(tst_DesignDialog)
#include "tst_DesignDialog.moc"
