#include "interp/commandsManager.h"
#include "interp/tcltext.h"
#include "tests/TestClass.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

// Texts between Qt and Tcl; run under two locales.
class tst_tcltext : public QObject
{
    Q_OBJECT

private:
    Tcl_Interp *interp = nullptr;

    QByteArray eval(const QByteArray &script)
    {
        Tcl_EvalEx(interp, script.constData(), -1, 0);
        return Tcl_GetStringResult(interp);
    }

    // Rows of text and bytes that stand for each other.
    static void addPairs()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("bytes");
        const auto row = [](const char *name, const QString &text, const QByteArray &bytes) {
            QTest::newRow(name) << text << bytes;
        };
        row("pair-ascii-1 empty", QString(), "");
        row("pair-ascii-2 letters", u"plain text\n\t\x7f"_s, "plain text\n\t\x7f");
        row("pair-zero-1 alone", QString(1, QChar()), "\xC0\x80");
        row("pair-zero-2 in the middle", u"a\0b"_s,
            "a\xC0\x80"
            "b");
        row("pair-zero-3 several", u"\0\0x\0"_s, "\xC0\x80\xC0\x80x\xC0\x80");
        row("pair-two-1 umlaut", u"\u00FC"_s, "\xC3\xBC");
        row("pair-two-2 first and last", u"\u0080\u07FF"_s, "\xC2\x80\xDF\xBF");
        row("pair-three-1 euro", u"5 \u20AC"_s, "5 \xE2\x82\xAC");
        row("pair-three-2 first and last", u"\u0800\uFFFF"_s, "\xE0\xA0\x80\xEF\xBF\xBF");
        row("pair-three-3 beside the surrogates", u"\uD7FF\uE000"_s, "\xED\x9F\xBF\xEE\x80\x80");
        row("pair-three-4 the replacement character", u"a\uFFFD"_s, "a\xEF\xBF\xBD");
        row("pair-mark-1 a byte order mark at the start", u"\uFEFFx"_s, "\xEF\xBB\xBFx");
        row("pair-mark-2 a byte order mark alone", u"\uFEFF"_s, "\xEF\xBB\xBF");
        row("pair-four-1 first beyond the basic plane", u"\U00010000"_s,
            "\xED\xA0\x80\xED\xB0\x80");
        row("pair-four-2 a face among letters", u"a\U0001F600b"_s,
            "a\xED\xA0\xBD\xED\xB8\x80"
            "b");
        row("pair-four-3 the last character of all", u"\U0010FFFF"_s, "\xED\xAF\xBF\xED\xBF\xBF");
        row("pair-half-1 a high surrogate alone", u"a"_s + QChar(0xD83D) + u"b"_s,
            "a\xED\xA0\xBD"
            "b");
        row("pair-half-2 a low surrogate alone", QString(QChar(0xDE00)), "\xED\xB8\x80");
        row("pair-half-3 two surrogates in the wrong order", QString(QChar(0xDE00)) + QChar(0xD83D),
            "\xED\xB8\x80\xED\xA0\xBD");
        row("pair-mixed-1 all kinds", u"\uFEFF\0\u00FC\u20AC\U0001F600"_s,
            "\xEF\xBB\xBF\xC0\x80\xC3\xBC\xE2\x82\xAC\xED\xA0\xBD\xED\xB8\x80");
    }

private Q_SLOTS:
    void initTestCase()
    {
        interp = commandsManager::getInstance(nullptr)->interp;
        QCOMPARE(eval("encoding system"), "utf-8");
    }

    void textsBecomeTclsBytes_data() { addPairs(); }
    void textsBecomeTclsBytes()
    {
        QFETCH(QString, text);
        QTEST(tcltext::toTcl(text), "bytes");
    }

    void tclsBytesBecomeTexts_data() { addPairs(); }
    void tclsBytesBecomeTexts()
    {
        QFETCH(QByteArray, bytes);
        QTEST(tcltext::fromTcl(bytes.constData()), "text");
        QTEST(tcltext::fromTcl((bytes + "tail").constData(), bytes.size()), "text");
    }

    void equalTextsAreEqual_data() { addPairs(); }
    void equalTextsAreEqual()
    {
        QFETCH(QString, text);
        QFETCH(QByteArray, bytes);
        QVERIFY(tcltext::equals(text, bytes.constData()));
        QVERIFY(!tcltext::equals(text + u'x', bytes.constData()));
        QVERIFY(!tcltext::equals(text, (bytes + 'x').constData()));
        QVERIFY(!tcltext::equals(u'x' + text, bytes.constData()));
        QVERIFY(!tcltext::equals(text, ('x' + bytes).constData()));
    }

    void resultsComeAndGo_data() { addPairs(); }
    void resultsComeAndGo()
    {
        QFETCH(QString, text);
        Tcl_ResetResult(interp);
        tcltext::appendResult(interp, text);
        QCOMPARE(tcltext::result(interp), text);
        tcltext::appendResult(interp, u"+"_s);
        tcltext::appendResult(interp, text);
        QCOMPARE(tcltext::result(interp), text + u'+' + text);
    }

    void bytesThatAreNoUtf8AreReadAsTclDoes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("bytes-odd-1 a byte of Latin-1") << QByteArray("a\xFC"
                                                                     "b")
                                                       << u"a\u00FCb"_s;
        QTest::newRow("bytes-odd-2 a byte that never occurs") << QByteArray("\xFF") << u"\u00FF"_s;
        QTest::newRow("bytes-odd-3 a trail byte alone") << QByteArray("\x80x") << u"\u0080x"_s;
        QTest::newRow("bytes-odd-4 two bytes cut off") << QByteArray("a\xC3") << u"a\u00C3"_s;
        QTest::newRow("bytes-odd-5 three bytes cut off")
            << QByteArray("\xE2\x82") << u"\u00E2\u0082"_s;
        QTest::newRow("bytes-odd-6 an overlong form")
            << QByteArray("\xC1\xBF") << u"\u00C1\u00BF"_s;
        QTest::newRow("bytes-odd-7 four bytes beyond the last character")
            << QByteArray("\xF5\x80\x80\x80") << u"\u00F5\u0080\u0080\u0080"_s;
        QTest::newRow("bytes-four-1 a face as four bytes") << QByteArray("a\xF0\x9F\x98\x80"
                                                                         "b")
                                                           << u"a\U0001F600b"_s;
        QTest::newRow("bytes-four-2 a face as four bytes beside an odd byte")
            << QByteArray("\xF0\x9F\x98\x80\xFF") << u"\U0001F600\u00FF"_s;
    }
    void bytesThatAreNoUtf8AreReadAsTclDoes()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QCOMPARE(tcltext::fromTcl(bytes.constData()), text);
        // Tcl's own count and codes of the same bytes.
        Tcl_SetVar(interp, "x", bytes.constData(), TCL_GLOBAL_ONLY);
        QCOMPARE(eval("string length $x").toInt(), text.size());
    }

    void aNullPointerIsTheNullText()
    {
        QVERIFY(tcltext::fromTcl(nullptr).isNull());
        QCOMPARE(tcltext::fromTcl("abc", 0), QString());
    }

    void zeroBytesOfASliceAreCharacters() { QCOMPARE(tcltext::fromTcl("a\0b", 3), u"a\0b"_s); }

    void tclMakesTheSameOfAText_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QString>("text");
        QTest::newRow("tcl-made-1 a zero") << QByteArray("format a%cb 0") << u"a\0b"_s;
        QTest::newRow("tcl-made-2 a euro") << QByteArray("format %c 8364") << u"\u20AC"_s;
        QTest::newRow("tcl-made-3 a pair") << QByteArray("set x \\ud83d\\ude00") << u"\U0001F600"_s;
        QTest::newRow("tcl-made-4 input in UTF-8")
            << QByteArray("encoding convertfrom utf-8 \\xf0\\x9f\\x98\\x80") << u"\U0001F600"_s;
    }
    void tclMakesTheSameOfAText()
    {
        QFETCH(QByteArray, script);
        QFETCH(QString, text);
        QCOMPARE(eval(script), tcltext::toTcl(text));
        QCOMPARE(tcltext::result(interp), text);
    }

    // Tcl 8.6.13 crashes here when the face is handed over as four bytes.
    void tclWorksOnCharactersBeyondTheBasicPlane()
    {
        Tcl_SetVar(interp, "x", tcltext::toTcl(u"a\U0001F600"_s).constData(), TCL_GLOBAL_ONLY);
        eval("string toupper $x");
        QCOMPARE(tcltext::result(interp), u"A\U0001F600"_s);
    }

    void everyUnitComesBack()
    {
        QString all;
        for (int unit = 0; unit <= 0xFFFF; ++unit)
            all.append(QChar(char16_t(unit)));
        QCOMPARE(tcltext::fromTcl(tcltext::toTcl(all).constData()), all);
    }

    void textsReachChannelsInUtf8()
    {
        QTemporaryDir folder;
        Tcl_SetVar(interp, "name", (folder.path() + u"/text"_s).toUtf8().constData(),
                   TCL_GLOBAL_ONLY);
        Tcl_SetVar(interp, "x", tcltext::toTcl(u"5 \u20AC \U0001F600"_s).constData(),
                   TCL_GLOBAL_ONLY);
        eval("set f [open $name w]; puts -nonewline $f $x; close $f");
        QFile file(folder.path() + u"/text"_s);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("5 \xE2\x82\xAC \xF0\x9F\x98\x80"));
    }
};

APPLESS_TEST_CLASS(tst_tcltext)

#include "tst_tcltext.moc"
