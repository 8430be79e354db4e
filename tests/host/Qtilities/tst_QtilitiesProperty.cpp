#include "tests/TestClass.h"

#include <Qtilities/QtilitiesProperty.h>
#include <Qtilities/SharedProperty.h>

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::QtilitiesProperty;
using Qtilities::Core::SharedProperty;

// Values made from texts, and named values.
class tst_QtilitiesProperty : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void constructs_data();
    void constructs();
    void refuses_data();
    void refuses();
    void namesTypes_data();
    void namesTypes();
    void namesTypesThatMakeTheValueAgain();
    void startsInvalidWritableAndRemovable();
    void isValidWithNameAndValue_data();
    void isValidWithNameAndValue();
    void compares();
    void takesSharedNames_data();
    void takesSharedNames();
};

void tst_QtilitiesProperty::constructs_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariant>("value");

    const auto row = [](const char *name, const QString &type, const QString &text,
                        const QVariant &value) { QTest::newRow(name) << type << text << value; };
    row("make-bool-1 true", u"bool"_s, u"true"_s, true);
    row("make-bool-2 false", u"bool"_s, u"false"_s, false);
    row("make-bool-3 any case", u"bool"_s, u"TrUe"_s, true);
    row("make-bool-4 any case of false", u"bool"_s, u"FALSE"_s, false);
    row("make-int-1 a number", u"int"_s, u"5"_s, 5);
    row("make-int-2 with a sign", u"int"_s, u"-5"_s, -5);
    row("make-int-3 with a plus sign", u"int"_s, u"+5"_s, 5);
    row("make-int-4 leading zeros are decimal", u"int"_s, u"010"_s, 10);
    row("make-int-5 the largest", u"int"_s, u"2147483647"_s, 2147483647);
    row("make-int-6 the smallest", u"int"_s, u"-2147483648"_s, std::numeric_limits<int>::min());
    row("make-uint-1 zero", u"uint"_s, u"0"_s, 0U);
    row("make-uint-2 the largest", u"uint"_s, u"4294967295"_s, 4294967295U);
    row("make-double-1 a fraction", u"double"_s, u"2.5"_s, 2.5);
    row("make-double-2 an exponent", u"double"_s, u"-1e3"_s, -1000.0);
    row("make-double-3 a whole number", u"double"_s, u"7"_s, 7.0);
    row("make-double-4 the largest", u"double"_s, u"1.7976931348623157e308"_s,
        std::numeric_limits<double>::max());
    row("make-string-1 a text", u"string"_s, u"a b"_s, u"a b"_s);
    row("make-string-2 an empty text", u"string"_s, u""_s, u""_s);
    row("make-string-3 a null text is an empty one", u"string"_s, QString(), u""_s);
    row("make-string-4 blanks at the ends stay", u"string"_s, u" a "_s, u" a "_s);
    row("make-string-5 beyond the basic plane", u"string"_s, u"\U0001F600"_s, u"\U0001F600"_s);
    row("make-string-6 a zero", u"string"_s, u"a"_s + QChar() + u"b"_s, u"a"_s + QChar() + u"b"_s);
    row("make-string-7 the Qt name", u"QString"_s, u"a"_s, u"a"_s);
    row("make-string-8 an empty text under the Qt name", u"QString"_s, u""_s, u""_s);
}

void tst_QtilitiesProperty::constructs()
{
    QFETCH(QString, type);
    QFETCH(QString, text);
    QFETCH(QVariant, value);

    const QVariant made = QtilitiesProperty::constructVariant(type, text);

    QVERIFY(made.isValid());
    QCOMPARE(made.metaType(), value.metaType());
    QCOMPARE(made, value);
}

void tst_QtilitiesProperty::refuses_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, const QString &type, const QString &text) {
        QTest::newRow(name) << type << text;
    };
    row("refuse-type-1 none", u""_s, u"5"_s);
    row("refuse-type-2 another case", u"Int"_s, u"5"_s);
    row("refuse-type-3 blanks around it", u" int"_s, u"5"_s);
    row("refuse-type-4 the Qt name in another case", u"qstring"_s, u"a"_s);
    row("refuse-type-5 a type of Qt that is not offered", u"QColor"_s, u"red"_s);
    row("refuse-type-6 another number type", u"float"_s, u"1"_s);
    row("refuse-bool-1 nothing", u"bool"_s, u""_s);
    row("refuse-bool-2 a digit", u"bool"_s, u"1"_s);
    row("refuse-bool-3 another word", u"bool"_s, u"yes"_s);
    row("refuse-bool-4 a blank behind it", u"bool"_s, u"true "_s);
    row("refuse-int-1 nothing", u"int"_s, u""_s);
    row("refuse-int-2 a word", u"int"_s, u"five"_s);
    row("refuse-int-3 a fraction", u"int"_s, u"5.0"_s);
    row("refuse-int-4 too large", u"int"_s, u"2147483648"_s);
    row("refuse-int-5 too small", u"int"_s, u"-2147483649"_s);
    row("refuse-int-6 hexadecimal", u"int"_s, u"0x10"_s);
    row("refuse-int-7 a blank in front", u"int"_s, u" 5"_s);
    row("refuse-int-8 a line feed behind it", u"int"_s, u"5\n"_s);
    row("refuse-int-9 something behind it", u"int"_s, u"5a"_s);
    row("refuse-int-10 a zero behind it", u"int"_s, u"5"_s + QChar());
    row("refuse-int-11 a separator", u"int"_s, u"1,000"_s);
    row("refuse-int-12 only a sign", u"int"_s, u"-"_s);
    row("refuse-uint-1 negative", u"uint"_s, u"-1"_s);
    row("refuse-uint-2 too large", u"uint"_s, u"4294967296"_s);
    row("refuse-double-1 nothing", u"double"_s, u""_s);
    row("refuse-double-2 too large", u"double"_s, u"1e309"_s);
    row("refuse-double-3 infinity", u"double"_s, u"inf"_s);
    row("refuse-double-4 no number", u"double"_s, u"nan"_s);
    row("refuse-double-5 a decimal comma", u"double"_s, u"2,5"_s);
    row("refuse-double-6 two of them", u"double"_s, u"1 2"_s);
}

void tst_QtilitiesProperty::refuses()
{
    QFETCH(QString, type);
    QFETCH(QString, text);

    QVERIFY(!QtilitiesProperty::constructVariant(type, text).isValid());
}

void tst_QtilitiesProperty::namesTypes_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("name");

    QTest::newRow("type-known-1 bool") << QVariant(true) << u"bool"_s;
    QTest::newRow("type-known-2 int") << QVariant(1) << u"int"_s;
    QTest::newRow("type-known-3 uint") << QVariant(1U) << u"uint"_s;
    QTest::newRow("type-known-4 double") << QVariant(1.5) << u"double"_s;
    QTest::newRow("type-known-5 string") << QVariant(u"a"_s) << u"string"_s;
    QTest::newRow("type-other-1 a list") << QVariant(QStringList {u"a"_s}) << u"string"_s;
    QTest::newRow("type-other-2 nothing") << QVariant() << u"string"_s;
}

void tst_QtilitiesProperty::namesTypes()
{
    QFETCH(QVariant, value);
    QFETCH(QString, name);

    QCOMPARE(QtilitiesProperty::typeName(value), name);
}

void tst_QtilitiesProperty::namesTypesThatMakeTheValueAgain()
{
    for (const QVariant &value :
         {QVariant(true), QVariant(-3), QVariant(3U), QVariant(0.1), QVariant(u" x "_s)}) {
        QCOMPARE(QtilitiesProperty::constructVariant(QtilitiesProperty::typeName(value),
                                                     value.toString()),
                 value);
    }
}

void tst_QtilitiesProperty::startsInvalidWritableAndRemovable()
{
    QtilitiesProperty property;
    QVERIFY(!property.isValid());
    QCOMPARE(property.name(), QString());
    QVERIFY(!property.value().isValid());
    QVERIFY(!property.isReadOnly());
    QVERIFY(property.isRemovable());

    property = QtilitiesProperty(u"p"_s, 1);
    property.setReadOnly(true);
    property.setRemovable(false);
    property.setValue(2);

    QCOMPARE(property.name(), u"p"_s);
    QCOMPARE(property.value(), QVariant(2));
    QVERIFY(property.isReadOnly());
    QVERIFY(!property.isRemovable());
}

void tst_QtilitiesProperty::isValidWithNameAndValue_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("valid");

    QTest::newRow("valid-1 both") << u"p"_s << QVariant(1) << true;
    QTest::newRow("valid-2 an empty text is a value") << u"p"_s << QVariant(u""_s) << true;
    QTest::newRow("valid-3 no name") << u""_s << QVariant(1) << false;
    QTest::newRow("valid-4 no value") << u"p"_s << QVariant() << false;
}

void tst_QtilitiesProperty::isValidWithNameAndValue()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    QFETCH(bool, valid);

    QCOMPARE(QtilitiesProperty(name, value).isValid(), valid);
}

void tst_QtilitiesProperty::compares()
{
    const QtilitiesProperty property(u"p"_s, 1);
    QtilitiesProperty other = property;
    QVERIFY(other == property);

    other.setReadOnly(true);
    QVERIFY(other != property);
    other = property;
    other.setRemovable(false);
    QVERIFY(other != property);
    other = property;
    other.setValue(2);
    QVERIFY(other != property);
    QVERIFY(QtilitiesProperty(u"q"_s, 1) != property);
}

void tst_QtilitiesProperty::takesSharedNames_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("name");

    QTest::newRow("name-1 ASCII") << QByteArray("p") << u"p"_s;
    QTest::newRow("name-2 UTF-8") << QByteArray("\xe2\x82\xac\xf0\x9f\x98\x80")
                                  << u"\u20ac\U0001F600"_s;
    QTest::newRow("name-3 none") << QByteArray("") << u""_s;
    QTest::newRow("name-4 a zero in two bytes is refused") << QByteArray("a\xc0\x80") << u""_s;
    QTest::newRow("name-5 half a character is refused") << QByteArray("a\xe2\x82") << u""_s;
    QTest::newRow("name-6 surrogates in UTF-8 are refused")
        << QByteArray("\xed\xa0\xbd\xed\xb8\x80") << u""_s;
}

void tst_QtilitiesProperty::takesSharedNames()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, name);

    const SharedProperty property(bytes.constData(), 1);

    QCOMPARE(property.name(), name);
    QCOMPARE(property.isValid(), !name.isEmpty());
}

APPLESS_TEST_CLASS(tst_QtilitiesProperty)
#include "tst_QtilitiesProperty.moc"
