#include "tests/TestClass.h"

#include <Qtilities/QtilitiesCategory.h>

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::QtilitiesCategory;

// Hierarchical names: split, joined, compared and ordered.
class tst_QtilitiesCategory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splits_data();
    void splits();
    void joins_data();
    void joins();
    void contains_data();
    void contains();
    void comparesWithCase();
    void dropsEmptyLevelsOfAList();
};

void tst_QtilitiesCategory::splits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QStringList>("levels");

    QTest::newRow("split-plain-1 one level") << u"HDL"_s << u"::"_s << QStringList {u"HDL"_s};
    QTest::newRow("split-plain-2 two levels")
        << u"HDL::Verilog"_s << u"::"_s << QStringList {u"HDL"_s, u"Verilog"_s};
    QTest::newRow("split-plain-3 three levels with blanks inside")
        << u"a b::c d::e"_s << u"::"_s << QStringList {u"a b"_s, u"c d"_s, u"e"_s};
    QTest::newRow("split-empty-1 an empty text") << u""_s << u"::"_s << QStringList();
    QTest::newRow("split-empty-2 only separators") << u"::::"_s << u"::"_s << QStringList();
    QTest::newRow("split-empty-3 empty levels at both ends and inside")
        << u"::a::::b::"_s << u"::"_s << QStringList {u"a"_s, u"b"_s};
    QTest::newRow("split-odd-1 three colons leave one with the next level")
        << u"a:::b"_s << u"::"_s << QStringList {u"a"_s, u":b"_s};
    QTest::newRow("split-odd-2 a single colon separates nothing")
        << u"a:b"_s << u"::"_s << QStringList {u"a:b"_s};
    QTest::newRow("split-odd-3 an empty separator separates nothing")
        << u"a::b"_s << u""_s << QStringList {u"a::b"_s};
    QTest::newRow("split-odd-4 another separator")
        << u"a/b::c"_s << u"/"_s << QStringList {u"a"_s, u"b::c"_s};
    QTest::newRow("split-text-1 characters beyond the basic plane")
        << u"\U0001F600::\u00e9"_s << u"::"_s << QStringList {u"\U0001F600"_s, u"\u00e9"_s};
}

void tst_QtilitiesCategory::splits()
{
    QFETCH(QString, text);
    QFETCH(QString, separator);
    QFETCH(QStringList, levels);

    const QtilitiesCategory category = QtilitiesCategory::fromString(text, separator);

    QCOMPARE(category.levels(), levels);
    QCOMPARE(category.isEmpty(), levels.isEmpty());
}

void tst_QtilitiesCategory::joins_data()
{
    QTest::addColumn<QStringList>("levels");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QString>("text");

    QTest::newRow("join-plain-1 no level") << QStringList() << u"::"_s << u""_s;
    QTest::newRow("join-plain-2 one level") << QStringList {u"a"_s} << u"::"_s << u"a"_s;
    QTest::newRow("join-plain-3 three levels")
        << QStringList {u"a"_s, u"b"_s, u"c"_s} << u"::"_s << u"a::b::c"_s;
    QTest::newRow("join-odd-1 another separator")
        << QStringList {u"a"_s, u"b"_s} << u" / "_s << u"a / b"_s;
    QTest::newRow("join-odd-2 an empty separator")
        << QStringList {u"a"_s, u"b"_s} << u""_s << u"ab"_s;
}

void tst_QtilitiesCategory::joins()
{
    QFETCH(QStringList, levels);
    QFETCH(QString, separator);
    QFETCH(QString, text);

    QCOMPARE(QtilitiesCategory(levels).toString(separator), text);
}

void tst_QtilitiesCategory::contains_data()
{
    QTest::addColumn<QString>("outer");
    QTest::addColumn<QString>("inner");
    QTest::addColumn<bool>("contained");

    QTest::newRow("contains-yes-1 itself") << u"a::b"_s << u"a::b"_s << true;
    QTest::newRow("contains-yes-2 a level below") << u"a"_s << u"a::b"_s << true;
    QTest::newRow("contains-yes-3 the empty one has all") << u""_s << u"a::b"_s << true;
    QTest::newRow("contains-no-1 a level above") << u"a::b"_s << u"a"_s << false;
    QTest::newRow("contains-no-2 a sibling") << u"a::b"_s << u"a::c"_s << false;
    QTest::newRow("contains-no-3 a longer name") << u"a"_s << u"ab::c"_s << false;
    QTest::newRow("contains-no-4 another case") << u"a"_s << u"A::b"_s << false;
}

void tst_QtilitiesCategory::contains()
{
    QFETCH(QString, outer);
    QFETCH(QString, inner);
    QFETCH(bool, contained);

    QCOMPARE(QtilitiesCategory::fromString(outer, u"::"_s)
                 .contains(QtilitiesCategory::fromString(inner, u"::"_s)),
             contained);
}

void tst_QtilitiesCategory::comparesWithCase()
{
    const QtilitiesCategory category = QtilitiesCategory::fromString(u"HDL::Verilog"_s, u"::"_s);

    QVERIFY(category == QtilitiesCategory({u"HDL"_s, u"Verilog"_s}));
    QVERIFY(category != QtilitiesCategory({u"HDL"_s, u"verilog"_s}));
    QVERIFY(category != QtilitiesCategory({u"HDL"_s}));
    QVERIFY(QtilitiesCategory() == QtilitiesCategory(QStringList()));
}

void tst_QtilitiesCategory::dropsEmptyLevelsOfAList()
{
    QCOMPARE(QtilitiesCategory({u""_s, u"a"_s, QString(), u"b"_s}).levels(),
             QStringList({u"a"_s, u"b"_s}));
}

APPLESS_TEST_CLASS(tst_QtilitiesCategory)
#include "tst_QtilitiesCategory.moc"
