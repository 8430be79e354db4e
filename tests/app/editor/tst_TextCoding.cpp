// Saving a text in another coding than it was read in.

#include "app/editor/PositionBar.h"
#include "tests/app/editor/PageFixture.h"
#include "tests/TestClass.h"

#include <QComboBox>
#include <QInputDialog>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;

class tst_TextCoding : public QObject, private PageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { page.reset(); }

    void anotherCodingIsChosen_data();
    void anotherCodingIsChosen();
    void theSameCodingIsNoChange();
    void nothingIsChosen();
    void whatLatin1CannotHoldIsOfferedAsUtf8();

private:
    using PageFixture::choose;
    // What the dialog offers; presses a key in it after choosing.
    QStringList choose(int index, Qt::Key key);
    QString position() const { return page->findChild<PositionBar *>()->text(); }
};

QStringList tst_TextCoding::choose(int index, Qt::Key key)
{
    QStringList offered;
    QTimer::singleShot(0, page.get(), [&] {
        auto *dialog = page->findChild<QInputDialog *>();
        auto *box = dialog->findChild<QComboBox *>();
        for (int row = 0; row < box->count(); ++row)
            offered.append(box->itemText(row));
        offered.append(dialog->labelText());
        box->setCurrentIndex(index);
        QTest::keyClick(dialog, key);
    });
    page->run(EditorPage::ChooseCoding);
    return offered;
}

void tst_TextCoding::anotherCodingIsChosen_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<int>("coding");
    QTest::addColumn<QString>("form");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("as-1 from Latin-1 to UTF-8")
        << QByteArray("gr\xFC\n") << 0 << u"UTF-8, LF"_s << QByteArray("gr\u00FC\n");
    QTest::newRow("as-2 with a mark")
        << QByteArray("a\r\n") << 1 << u"UTF-8 with BOM, CRLF"_s << QByteArray("\uFEFFa\r\n");
    QTest::newRow("as-3 to Latin-1")
        << QByteArray("gr\u00FC\n") << 2 << u"Latin-1, LF"_s << QByteArray("gr\xFC\n");
    QTest::newRow("as-4 to UTF-16") << QByteArray("a\n") << 3 << u"UTF-16 LE, LF"_s
                                    << QByteArray("\xFF\xFE"
                                                  "a\0\n\0",
                                                  6);
    QTest::newRow("as-5 the other way")
        << QByteArray("a\n") << 4 << u"UTF-16 BE, LF"_s << QByteArray("\xFE\xFF\0a\0\n", 6);
}

void tst_TextCoding::anotherCodingIsChosen()
{
    QFETCH(const QByteArray, before);
    QFETCH(const int, coding);
    QFETCH(const QString, form);
    QFETCH(const QByteArray, after);
    QVERIFY2(openPage(before), qPrintable(error));
    QCOMPARE(choose(coding, Qt::Key_Return),
             QStringList({u"UTF-8"_s, u"UTF-8 with BOM"_s, u"Latin-1"_s, u"UTF-16 LE"_s,
                          u"UTF-16 BE"_s, u"Save \"top.v\" from now on as:"_s}));
    QVERIFY(page->isModified());
    QVERIFY(position().endsWith(form));
    QCOMPARE(files::read(path), before);
    QVERIFY(page->save().toErrorText(&error));
    QVERIFY(!page->isModified());
    QCOMPARE(files::read(path), after);
}

void tst_TextCoding::theSameCodingIsNoChange()
{
    QVERIFY(openPage("a\n"));
    choose(0, Qt::Key_Return);
    QVERIFY(!page->isModified());
}

void tst_TextCoding::nothingIsChosen()
{
    QVERIFY(openPage("a\n"));
    choose(3, Qt::Key_Escape);
    QVERIFY(!page->isModified());
    QVERIFY(position().endsWith(u"UTF-8, LF"_s));
}

void tst_TextCoding::whatLatin1CannotHoldIsOfferedAsUtf8()
{
    QVERIFY(openPage("gr\xFC\n"));
    edit->insertPlainText(u"\u20AC"_s);
    QVERIFY(!page->save().toErrorText(&error));
    QCOMPARE(notice(), error + u'.');
    QCOMPARE(choices(), QStringList {u"Save as &UTF-8"_s});
    choose(u"Save as &UTF-8"_s);
    QCOMPARE(notice(), QString());
    QVERIFY(!page->isModified());
    QCOMPARE(files::read(path), QByteArray("\u20ACgr\u00FC\n"));
    // Without the character Latin-1 will do.
    QVERIFY(openPage("gr\xFC\n"));
    edit->insertPlainText(u"\u20AC"_s);
    QVERIFY(!page->save().toErrorText(&error));
    press(Qt::Key_Backspace);
    QVERIFY(page->save().toErrorText(&error));
    QCOMPARE(notice(), QString());
    QCOMPARE(files::read(path), QByteArray("gr\xFC\n"));
}

TEST_CLASS(tst_TextCoding)
#include "tst_TextCoding.moc"
