#include "console/QtclConsole.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

class tst_QtclConsole : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void smoke()
    {
        QtclConsole *c = QtclConsole::getInstance(nullptr, u"Welcome"_s);
        c->resize(600, 300);
        c->show();
        QVERIFY(QTest::qWaitForWindowExposed(c));
        QTest::keyClicks(c, u"puts hello"_s);
        QTest::keyClick(c, Qt::Key_Return);
        QTest::keyClicks(c, u"if 1 {"_s);
        QTest::keyClick(c, Qt::Key_Return);
        QTest::keyClicks(c, u"puts stderr oops }"_s);
        QTest::keyClick(c, Qt::Key_Return);
        QTest::keyClicks(c, u"history"_s);
        QTest::keyClick(c, Qt::Key_Return);
        QTest::keyClicks(c, u"set a [str"_s);
        QTest::keyClick(c, Qt::Key_Tab);
        QCOMPARE(c->toPlainText(),
                 u"Welcome\nmorvalen > puts hello\nhello\nmorvalen > if 1 {\nputs stderr oops }\n"
                 "oops\nmorvalen > history\n1\tputs hello\n2\tif 1 {\\nputs stderr oops }\n"
                 "morvalen > set a [string"_s);
        delete c;
    }
};

QTEST_MAIN(tst_QtclConsole)
#include "tst_QtclConsole.moc"
