#include "console/OutputLine.h"
#include "tests/TestClass.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

// What reaches a channel, gathered into lines.
class tst_OutputLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writes_data();
    void writes();
};

void tst_OutputLine::writes_data()
{
    QTest::addColumn<QList<QByteArray>>("writes");
    QTest::addColumn<QString>("shown"); // a line begins with "|", its parts are joined by "+"
    QTest::addColumn<QStringList>("told");
    const auto row = [](const char *name, const QList<QByteArray> &writes, const QString &shown,
                        const QStringList &told) {
        QTest::newRow(name) << writes << shown << told;
    };
    row("line-puts-1", {"hello", "\n"}, u"|hello"_s, {u"hello"_s});
    row("line-puts-2 empty", {"\n"}, u"|"_s, {QString()});
    row("line-puts-3 two", {"a", "\n", "b", "\n"}, u"|a|b"_s, {u"a"_s, u"b"_s});
    row("line-puts-4 several lines in one", {"a\nb", "\n"}, u"|a\nb"_s, {u"a\nb"_s});
    row("line-part-1", {"a", "b", "\n"}, u"|a+b"_s, {u"ab"_s});
    row("line-part-2 not ended", {"a", "b"}, u"|a+b"_s, {u"ab"_s});
    row("line-part-3 ended by more", {"a", "b\nc\n", "d", "\n"}, u"|a+b\nc|d"_s,
        {u"ab\nc"_s, u"d"_s});
    row("line-whole-1", {"a\n", "b\n"}, u"|a|b"_s, {u"a"_s, u"b"_s});
    row("line-bytes-1 a split character", {"\xc3", "\xa4\n"}, u"|ä"_s, {u"ä"_s});
    row("line-bytes-2 in three", {"x\xe2", "\x82", "\xac", "\n"}, u"|x+€"_s, {u"x€"_s});
    row("line-nothing-1", {""}, QString(), {});
}

void tst_OutputLine::writes()
{
    QFETCH(const QList<QByteArray>, writes);
    QString shown;
    QStringList told;
    OutputLine line(
        OutputLine::Receiver {.begin = [&](const QString &text) { shown += u'|' + text; },
                              .goOn = [&](const QString &text) { shown += u'+' + text; },
                              .tell = [&](const QString &text) { told += text; }});
    for (const QByteArray &bytes : writes)
        line.write(bytes);
    line.finish();
    QTEST(shown, "shown");
    QTEST(told, "told");
    line.finish();
    QTEST(told, "told");
}

TEST_CLASS(tst_OutputLine)
#include "tst_OutputLine.moc"
