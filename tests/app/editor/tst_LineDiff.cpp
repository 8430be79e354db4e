#include "app/editor/linediff.h"
#include "tests/TestClass.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using linediff::Line;

class tst_LineDiff : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void differencesAreText_data();
    void differencesAreText();
    void bothTextsComeOutAgain();
    void tooManyDifferencesAreOne();
};

void tst_LineDiff::differencesAreText_data()
{
    QTest::addColumn<QString>("old");
    QTest::addColumn<QString>("now");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const char *old, const char *now, const char *text) {
        QTest::newRow(name) << QString::fromLatin1(old) << QString::fromLatin1(now)
                            << QString::fromLatin1(text);
    };
    row("diff-1 nothing", "a\nb", "a\nb", "");
    row("diff-2 a changed line", "a\nb\nc", "a\nx\nc", "@@ -1 +1 @@\n a\n-b\n+x\n c\n");
    row("diff-3 an added line", "a\nc", "a\nb\nc", "@@ -1 +1 @@\n a\n+b\n c\n");
    row("diff-4 a removed line", "a\nb\nc", "a\nc", "@@ -1 +1 @@\n a\n-b\n c\n");
    row("diff-5 everything", "a", "b", "@@ -1 +1 @@\n-a\n+b\n");
    row("diff-6 a line at the end", "a", "a\nb", "@@ -1 +1 @@\n a\n+b\n");
    row("diff-7 far apart", "1\n2\n3\n4\n5\n6\n7\n8\n9", "x\n2\n3\n4\n5\n6\n7\n8\ny",
        "@@ -1 +1 @@\n-1\n+x\n 2\n 3\n 4\n@@ -6 +6 @@\n 6\n 7\n 8\n-9\n+y\n");
    row("diff-8 near together", "1\n2\n3\n4\n5\n6\n7\n8", "x\n2\n3\n4\n5\n6\n7\ny",
        "@@ -1 +1 @@\n-1\n+x\n 2\n 3\n 4\n 5\n 6\n 7\n-8\n+y\n");
    row("diff-9 the fewest lines", "a\nb\nc\na\nb\nb\na", "c\nb\na\nb\na\nc",
        "@@ -1 +1 @@\n-a\n-b\n c\n+b\n a\n b\n-b\n a\n+c\n");
    row("diff-10 behind more lines than before", "1\n2\n3\n4\n5\n6\n7\n8\n9",
        "a\nb\n1\n2\n3\n4\n5\n6\n7\n8\nx",
        "@@ -1 +1 @@\n+a\n+b\n 1\n 2\n 3\n@@ -6 +8 @@\n 6\n 7\n 8\n-9\n+x\n");
    row("diff-11 behind fewer lines than before", "a\nb\n1\n2\n3\n4\n5\n6\n7\n8\n9",
        "1\n2\n3\n4\n5\n6\n7\n8\nx",
        "@@ -1 +1 @@\n-a\n-b\n 1\n 2\n 3\n@@ -8 +6 @@\n 6\n 7\n 8\n-9\n+x\n");
}

void tst_LineDiff::differencesAreText()
{
    QFETCH(const QString, old);
    QFETCH(const QString, now);
    QFETCH(const QString, text);
    QCOMPARE(linediff::text(old.split(u'\n'), now.split(u'\n')), text);
}

void tst_LineDiff::bothTextsComeOutAgain()
{
    QRandomGenerator random(7);
    const auto make = [&random] {
        QStringList lines;
        for (int line = random.bounded(12); line > 0; --line)
            lines.append(QString(QChar(u'a' + random.bounded(3))));
        return lines;
    };
    for (int round = 0; round < 2000; ++round) {
        const QStringList old = make();
        const QStringList now = make();
        QStringList left;
        QStringList right;
        for (const Line &line : linediff::compare(old, now)) {
            if (line.kind != Line::Added)
                left.append(line.text);
            if (line.kind != Line::Removed)
                right.append(line.text);
        }
        QCOMPARE(left, old);
        QCOMPARE(right, now);
    }
}

void tst_LineDiff::tooManyDifferencesAreOne()
{
    QStringList old {u"same"_s};
    QStringList now {u"same"_s};
    for (int line = 0; line < 1500; ++line) {
        old.append(u"old %1"_s.arg(line));
        now.append(u"new %1"_s.arg(line));
    }
    const QList<Line> lines = linediff::compare(old, now);
    QCOMPARE(lines.size(), 3001);
    QCOMPARE(lines[0], (Line {Line::Same, u"same"_s}));
    QCOMPARE(lines[1], (Line {Line::Removed, u"old 0"_s}));
    QCOMPARE(lines[1501], (Line {Line::Added, u"new 0"_s}));
}

TEST_CLASS(tst_LineDiff)
#include "tst_LineDiff.moc"
