#include "app/designs/rowchanges.h"
#include "tests/TestClass.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

QList<QChar> keys(const QString &text) { return {text.begin(), text.end()}; }

QString textOf(const QList<RowRange> &ranges)
{
    QStringList texts;
    for (const RowRange &range : ranges)
        texts.append(QString::number(range.first) + u'+' + QString::number(range.count));
    return texts.join(u' ');
}

// What views see.
QList<QChar> changed(QList<QChar> rows, const QList<QChar> &after, const RowChanges &changes)
{
    for (qsizetype i = changes.removals.size() - 1; i >= 0; --i)
        rows.remove(changes.removals[i].first, changes.removals[i].count);
    for (const auto [first, count] : changes.insertions) {
        for (qsizetype row = first; row < first + count; ++row)
            rows.insert(row, after[row]);
    }
    return rows;
}

} // namespace

class tst_RowChanges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsTheChanges_data();
    void findsTheChanges();
    void makesAnyListOfAnyOther();
};

void tst_RowChanges::findsTheChanges_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("removals");
    QTest::addColumn<QString>("insertions");
    const struct
    {
        const char *name;
        QString before;
        QString after;
        QString removals;
        QString insertions;
    } rows[] = {
        {"changes-1 nothing at all", u""_s, u""_s, u""_s, u""_s},
        {"changes-2 the same", u"abc"_s, u"abc"_s, u""_s, u""_s},
        {"changes-3 all are new", u""_s, u"abc"_s, u""_s, u"0+3"_s},
        {"changes-4 all are gone", u"abc"_s, u""_s, u"0+3"_s, u""_s},
        {"changes-5 more behind", u"ab"_s, u"abcd"_s, u""_s, u"2+2"_s},
        {"changes-6 more in front", u"cd"_s, u"abcd"_s, u""_s, u"0+2"_s},
        {"changes-7 fewer between", u"abcd"_s, u"ad"_s, u"1+2"_s, u""_s},
        {"changes-8 some here and there", u"abcdef"_s, u"bxdef"_s, u"0+1 2+1"_s, u"1+1"_s},
        {"changes-9 every second", u"abcdef"_s, u"bdf"_s, u"0+1 2+1 4+1"_s, u""_s},
        {"changes-10 the last comes first", u"abc"_s, u"cab"_s, u"0+2"_s, u"1+2"_s},
        {"changes-11 the first comes last", u"abc"_s, u"bca"_s, u"0+1"_s, u"2+1"_s},
        {"changes-12 the other way round", u"abc"_s, u"cba"_s, u"0+2"_s, u"1+2"_s},
        {"changes-13 gone ones are alike", u"a--b-"_s, u"ab"_s, u"1+2 4+1"_s, u""_s},
    };
    for (const auto &row : rows)
        QTest::newRow(row.name) << row.before << row.after << row.removals << row.insertions;
}

void tst_RowChanges::findsTheChanges()
{
    QFETCH(const QString, before);
    QFETCH(const QString, after);
    const RowChanges changes = rowChanges(keys(before), keys(after));
    QTEST(textOf(changes.removals), "removals");
    QTEST(textOf(changes.insertions), "insertions");
    QCOMPARE(changed(keys(before), keys(after), changes), keys(after));
}

void tst_RowChanges::makesAnyListOfAnyOther()
{
    QRandomGenerator random(1);
    const auto someKeys = [&random] {
        QList<QChar> all = keys(u"abcdefghijkl"_s);
        QList<QChar> some;
        while (!all.isEmpty() && random.bounded(8) > 0)
            some.append(all.takeAt(random.bounded(all.size())));
        return some;
    };
    for (int round = 0; round < 5'000; ++round) {
        const QList<QChar> before = someKeys();
        const QList<QChar> after = someKeys();
        QCOMPARE(changed(before, after, rowChanges(before, after)), after);
    }
}

APPLESS_TEST_CLASS(tst_RowChanges)
#include "tst_RowChanges.moc"
