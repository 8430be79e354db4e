#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <QTest>

#include <optional>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignProperty;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::QtilitiesCategory;

namespace {

const QByteArray component =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<ipxact:component xmlns:ipxact=\"http://www.accellera.org/XMLSchema/IPXACT/1685-2014\">\n"
    "  <ipxact:vendor>example.org</ipxact:vendor>\n"
    "  <ipxact:library>cores</ipxact:library>\n"
    "  <ipxact:name>uart</ipxact:name>\n"
    "  <ipxact:version>2.1</ipxact:version>\n"
    "  <ipxact:parameters>\n"
    "    <ipxact:parameter parameterId=\"p1\" type=\"int\">\n"
    "      <ipxact:name>WIDTH</ipxact:name>\n"
    "      <ipxact:value>8</ipxact:value>\n"
    "    </ipxact:parameter>\n"
    "    <ipxact:parameter parameterId=\"p2\" resolve=\"generated\">\n"
    "      <ipxact:name>BUILT</ipxact:name>\n"
    "      <ipxact:value>never</ipxact:value>\n"
    "    </ipxact:parameter>\n"
    "    <ipxact:parameter parameterId=\"p3\" type=\"int\">\n"
    "      <ipxact:name>DEPTH</ipxact:name>\n"
    "      <ipxact:value>p1 * 2</ipxact:value>\n"
    "    </ipxact:parameter>\n"
    "  </ipxact:parameters>\n"
    "</ipxact:component>\n";

} // namespace

// The properties of a design: the parameters that came with its file, and those made since.
class tst_DesignProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        session.emplace();
        design = session->openComponent(component);
        QVERIFY(design);
    }
    void cleanup() { session.reset(); }

    void takesParametersAsProperties();
    void addsPropertiesOfEveryType_data();
    void addsPropertiesOfEveryType();
    void refusesEmptyAndDoubleNames();
    void changesValuesInPlace();
    void refusesToChangeAReadOnlyProperty();
    void renamesAProperty();
    void changesTheCategory();
    void removesProperties();
    void refusesToRemoveWhatOthersReferTo();
    void dropsARemovedPropertyFromTheActiveOnes();
    void refusesEveryChangeOfAReadOnlyDesign();

private:
    DesignProperty *add(const QString &name, const QVariant &value)
    {
        return design->addProperty(name, {}, value, false, nullptr);
    }
    QStringList all() const
    {
        QStringList list;
        for (const DesignProperty *property : design->properties())
            list.append(property->getName());
        return list;
    }
    QVariant valueOf(const QString &name) const
    {
        const DesignProperty *property = design->propertyByName(name);
        return property ? property->propertyData().value() : QVariant();
    }

    std::optional<SessionFixture> session;
    IDesign *design = nullptr;
};

void tst_DesignProperties::takesParametersAsProperties()
{
    QCOMPARE(all(), (QStringList {u"WIDTH"_s, u"BUILT"_s, u"DEPTH"_s}));
    QCOMPARE(valueOf(u"WIDTH"_s), QVariant(8));
    QCOMPARE(valueOf(u"BUILT"_s), QVariant(u"never"_s));
    // An expression is text.
    QCOMPARE(valueOf(u"DEPTH"_s), QVariant(u"p1 * 2"_s));
    QVERIFY(design->propertyByName(u"BUILT"_s)->propertyData().isReadOnly());
    QVERIFY(!design->propertyByName(u"DEPTH"_s)->propertyData().isReadOnly());
    QVERIFY(!design->propertyByName(u"WIDTH"_s)->propertyData().isRemovable());
    QVERIFY(design->propertyByName(u"DEPTH"_s)->propertyData().isRemovable());
    QVERIFY(!design->propertyByName(u"width"_s));
    QVERIFY(!design->propertyByName(QString()));
}

void tst_DesignProperties::addsPropertiesOfEveryType_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("type-1 bool") << QVariant(true);
    QTest::newRow("type-2 int") << QVariant(-5);
    QTest::newRow("type-3 uint") << QVariant(4000000000U);
    QTest::newRow("type-4 double") << QVariant(0.1);
    QTest::newRow("type-5 a large double") << QVariant(1.7976931348623157e308);
    QTest::newRow("type-6 text") << QVariant(u"a \"b\" <&> %1 \U0001F600"_s);
    QTest::newRow("type-7 empty text") << QVariant(QString());
    QTest::newRow("type-8 lines and blanks") << QVariant(u" a\n\tb\r\n "_s);
    QTest::newRow("type-9 text that looks like a number") << QVariant(u"007"_s);
}

void tst_DesignProperties::addsPropertiesOfEveryType()
{
    QFETCH(QVariant, value);
    QVERIFY(add(u"p \"1\""_s, value));
    QCOMPARE(valueOf(u"p \"1\""_s), value);
    QCOMPARE(all(), (QStringList {u"WIDTH"_s, u"BUILT"_s, u"DEPTH"_s, u"p \"1\""_s}));
    design = session->reopen(design);
    QCOMPARE(valueOf(u"p \"1\""_s), value);
    QVERIFY(!design->propertyByName(u"p \"1\""_s)->propertyData().isReadOnly());
    QVERIFY(design->propertyByName(u"p \"1\""_s)->propertyData().isRemovable());
}

void tst_DesignProperties::refusesEmptyAndDoubleNames()
{
    QString error;
    QVERIFY(!design->addProperty(QString(), {}, 1, false, &error));
    QCOMPARE(error, u"The name of a property cannot be empty"_s);
    QVERIFY(!design->addProperty(u"WIDTH"_s, {}, 1, false, &error));
    QCOMPARE(error, u"The design \"uart\" has the property \"WIDTH\" already"_s);
    for (const QVariant &odd : {QVariant(QString(QChar(0))), QVariant(QString(QChar(0xdc00)))}) {
        error.clear();
        QVERIFY(!design->addProperty(u"odd"_s, {}, odd, false, &error));
        QVERIFY(!error.isEmpty());
        QVERIFY(!design->addProperty(odd.toString(), {}, 1, false, &error));
    }
    QVERIFY(!design->isModified());
}

void tst_DesignProperties::changesValuesInPlace()
{
    design->propertyByName(u"WIDTH"_s)->setValue(16);
    QCOMPARE(valueOf(u"WIDTH"_s), QVariant(16));
    QVERIFY(design->saveToComponentFile(nullptr));
    QCOMPARE(SessionFixture::read(design->componentFileName()),
             QByteArray(component).replace(">8<", ">16<"));
    DesignProperty *own = add(u"own"_s, 1);
    own->setValue(u"text now"_s);
    design = session->reopen(design);
    QCOMPARE(valueOf(u"own"_s), QVariant(u"text now"_s));
}

void tst_DesignProperties::refusesToChangeAReadOnlyProperty()
{
    DesignProperty *built = design->propertyByName(u"BUILT"_s);
    built->setValue(u"now"_s);
    QVERIFY(!built->setName(u"OTHER"_s));
    QVERIFY(!built->setCategory(QtilitiesCategory({u"A"_s})));
    QCOMPARE(
        session->takeLog(),
        QStringList(3, u"Warning: The property \"BUILT\" of the design \"uart\" is read-only"_s));
    QCOMPARE(valueOf(u"BUILT"_s), QVariant(u"never"_s));

    QVERIFY(design->addProperty(u"fixed"_s, {}, 1, true, nullptr));
    design = session->reopen(design);
    QVERIFY(design->propertyByName(u"fixed"_s)->propertyData().isReadOnly());
}

void tst_DesignProperties::renamesAProperty()
{
    DesignProperty *own = add(u"own"_s, 1);
    QVERIFY(own->setName(u"mine"_s));
    QCOMPARE(design->propertyByName(u"mine"_s), own);
    QVERIFY(!design->propertyByName(u"own"_s));
    QVERIFY(own->setName(u"mine"_s));
    QVERIFY(!own->setName(u"WIDTH"_s));
    QVERIFY(!own->setName(QString()));
    QVERIFY(!own->setName(QString(QChar(0))));
    QCOMPARE(own->getName(), u"mine"_s);
    QCOMPARE(session->takeLog().size(), 3);
    QVERIFY(add(u"own"_s, 2));
    design = session->reopen(design);
    QCOMPARE(all(), (QStringList {u"WIDTH"_s, u"BUILT"_s, u"DEPTH"_s, u"mine"_s, u"own"_s}));
}

void tst_DesignProperties::changesTheCategory()
{
    DesignProperty *own =
        design->addProperty(u"own"_s, QtilitiesCategory({u"A"_s, u"B"_s}), 1, false, nullptr);
    QCOMPARE(own->category().toString(u"::"_s), u"A::B"_s);
    QVERIFY(own->setCategory(QtilitiesCategory({u"C"_s})));
    design = session->reopen(design);
    QCOMPARE(design->propertyByName(u"own"_s)->category().toString(u"::"_s), u"C"_s);
}

void tst_DesignProperties::removesProperties()
{
    QVERIFY(add(u"own"_s, 1));
    QVERIFY(design->removeProperty(u"own"_s));
    QVERIFY(!design->removeProperty(u"own"_s));
    QVERIFY(design->removeProperty(u"DEPTH"_s));
    design = session->reopen(design);
    QCOMPARE(all(), (QStringList {u"WIDTH"_s, u"BUILT"_s}));
    // With the expression gone, nothing refers to it any more.
    QVERIFY(design->removeProperty(u"WIDTH"_s));
}

void tst_DesignProperties::refusesToRemoveWhatOthersReferTo()
{
    QVERIFY(!design->removeProperty(u"WIDTH"_s));
    QCOMPARE(session->takeLog(),
             QStringList {
                 u"Warning: The property \"WIDTH\" of the design \"uart\" cannot be removed"_s});
    QVERIFY(design->propertyByName(u"WIDTH"_s));
}

void tst_DesignProperties::dropsARemovedPropertyFromTheActiveOnes()
{
    DesignProperty *own = add(u"own"_s, 1);
    DesignProperty *width = design->propertyByName(u"WIDTH"_s);
    design->setActiveProperties({own, width});
    QVERIFY(design->removeProperty(u"own"_s));
    QCOMPARE(design->activeProperties(), QList<QPointer<DesignProperty>> {width});
}

void tst_DesignProperties::refusesEveryChangeOfAReadOnlyDesign()
{
    QVERIFY(add(u"own"_s, 1));
    design->setReadOnly(true);
    const QString reason = u"The design \"uart\" is read-only"_s;
    DesignProperty *own = design->propertyByName(u"own"_s);
    QVERIFY(own->propertyData().isReadOnly());
    QString error;
    QVERIFY(!design->addProperty(u"new"_s, {}, 1, false, &error));
    QCOMPARE(error, reason);
    own->setValue(2);
    QVERIFY(!own->setName(u"other"_s));
    QVERIFY(!own->setCategory(QtilitiesCategory({u"A"_s})));
    QVERIFY(!design->removeProperty(u"own"_s));
    QCOMPARE(session->takeLog(), QStringList(4, u"Warning: "_s + reason));
    QCOMPARE(valueOf(u"own"_s), QVariant(1));
    design->setReadOnly(false);
    QVERIFY(!own->propertyData().isReadOnly());
}

TEST_CLASS(tst_DesignProperties)
#include "tst_DesignProperties.moc"
