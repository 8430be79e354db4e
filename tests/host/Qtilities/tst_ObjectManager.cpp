#include "tests/TestClass.h"

#include <Qtilities/ObjectManager.h>
#include <Qtilities/QtilitiesCoreApplication.h>

#include <QDynamicPropertyChangeEvent>
#include <QPoint>
#include <QTest>

#include <cmath>
#include <limits>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::InstanceFactoryInfo;
using Qtilities::Core::ObjectManager;
using Qtilities::Core::QtilitiesCoreApplication;
using Qtilities::Core::SharedProperty;
using Qtilities::Core::Interfaces::IFactoryProvider;

namespace {

// An object that lets nobody change its dynamic properties.
class StubbornObject : public QObject
{
public:
    QVariant kept;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange && property("p") != kept)
            setProperty("p", kept);
        return QObject::event(event);
    }
};

// A value that equals nothing, itself included.
struct Unequal
{
    bool operator==(const Unequal &) const { return false; }
};

class FakeFactory : public IFactoryProvider
{
public:
    explicit FakeFactory(const QString &factoryName) : name(factoryName) { }

    QString factoryName() const override { return name; }
    QStringList instanceTags() const override { return {u"tag"_s}; }
    QObject *createInstance(const InstanceFactoryInfo &) override { return nullptr; }

private:
    QString name;
};

} // namespace

Q_DECLARE_METATYPE(Unequal)

// Properties that objects share, and factories by name.
class tst_ObjectManager : public QObject
{
    Q_OBJECT

    Q_PROPERTY(QVariant declared READ declared WRITE setDeclared)

public:
    QVariant declared() const { return declaredValue; }
    void setDeclared(const QVariant &value) { declaredValue = value; }

private Q_SLOTS:
    void keepsProperties();
    void keepsFlags();
    void replacesProperties();
    void knowsInvalidProperties();
    void refusesWhatIsNoProperty();
    void refusesNamesOfDeclaredProperties();
    void leavesOrdinaryPropertiesAlone();
    void removesWithAnInvalidVariant();
    void listsNamesInOrder();
    void keepsNamesBeyondAscii();
    void acceptsTheSameValueTwice();
    void acceptsValuesThatEqualNothing_data();
    void acceptsValuesThatEqualNothing();
    void noticesARefusal();
    void noticesARefusalOfAReplacement();
    void findsFactoriesByName();
    void replacesAFactoryOfTheSameName();
    void canBeReplaced();

private:
    QVariant declaredValue;
};

void tst_ObjectManager::keepsProperties()
{
    QObject object;
    QVERIFY(!ObjectManager::propertyExists(&object, "p"));
    QCOMPARE(ObjectManager::getSharedProperty(&object, "p"), SharedProperty());

    QVERIFY(ObjectManager::setSharedProperty(&object, SharedProperty("p", 5)));

    QVERIFY(ObjectManager::propertyExists(&object, "p"));
    QVERIFY(!ObjectManager::propertyExists(&object, "P"));
    const SharedProperty property = ObjectManager::getSharedProperty(&object, "p");
    QVERIFY(property.isValid());
    QCOMPARE(property.name(), u"p"_s);
    QCOMPARE(property.value(), QVariant(5));
    QVERIFY(!property.isReadOnly());
    QVERIFY(property.isRemovable());
}

void tst_ObjectManager::keepsFlags()
{
    QObject object;
    SharedProperty property("p", u"x"_s);
    property.setReadOnly(true);
    property.setRemovable(false);

    QVERIFY(ObjectManager::setSharedProperty(&object, property));
    // What happens to the local one later does not reach the object.
    property.setReadOnly(false);

    QVERIFY(ObjectManager::getSharedProperty(&object, "p").isReadOnly());
    QVERIFY(!ObjectManager::getSharedProperty(&object, "p").isRemovable());
}

void tst_ObjectManager::replacesProperties()
{
    QObject object;
    QVERIFY(ObjectManager::setSharedProperty(&object, SharedProperty("p", 5)));

    QVERIFY(ObjectManager::setSharedProperty(&object, SharedProperty("p", u"text"_s)));

    QCOMPARE(ObjectManager::getSharedProperty(&object, "p").value(), QVariant(u"text"_s));
    QCOMPARE(ObjectManager::sharedPropertyNames(&object), QStringList {u"p"_s});
}

void tst_ObjectManager::knowsInvalidProperties()
{
    QObject object;

    QVERIFY(ObjectManager::setSharedProperty(&object, SharedProperty("p", QVariant())));

    QVERIFY(ObjectManager::propertyExists(&object, "p"));
    QVERIFY(!ObjectManager::getSharedProperty(&object, "p").isValid());
}

void tst_ObjectManager::refusesWhatIsNoProperty()
{
    QObject object;

    QVERIFY(!ObjectManager::setSharedProperty(nullptr, SharedProperty("p", 5)));
    QVERIFY(!ObjectManager::setSharedProperty(&object, SharedProperty()));
    QVERIFY(!ObjectManager::setSharedProperty(&object, SharedProperty("", 5)));
    QVERIFY(!ObjectManager::setSharedProperty(&object, SharedProperty("a\xc0\x80", 5)));
    QVERIFY(!ObjectManager::propertyExists(nullptr, "p"));
    QVERIFY(!ObjectManager::propertyExists(&object, nullptr));
    QVERIFY(!ObjectManager::propertyExists(&object, ""));
    QCOMPARE(ObjectManager::getSharedProperty(nullptr, "p"), SharedProperty());
    QCOMPARE(ObjectManager::sharedPropertyNames(nullptr), QStringList());
    QCOMPARE(object.dynamicPropertyNames(), QByteArrayList());
}

void tst_ObjectManager::refusesNamesOfDeclaredProperties()
{
    setObjectName(u"mine"_s);
    declaredValue = 1;

    QVERIFY(!ObjectManager::setSharedProperty(this, SharedProperty("objectName", u"theirs"_s)));
    QVERIFY(!ObjectManager::setSharedProperty(this, SharedProperty("declared", 2)));

    QCOMPARE(objectName(), u"mine"_s);
    QCOMPARE(declaredValue, QVariant(1));
    QVERIFY(!ObjectManager::propertyExists(this, "objectName"));
}

void tst_ObjectManager::leavesOrdinaryPropertiesAlone()
{
    QObject object;
    object.setProperty("plain", 5);

    QVERIFY(!ObjectManager::propertyExists(&object, "plain"));
    QCOMPARE(ObjectManager::getSharedProperty(&object, "plain"), SharedProperty());
    QCOMPARE(ObjectManager::sharedPropertyNames(&object), QStringList());
}

void tst_ObjectManager::removesWithAnInvalidVariant()
{
    QObject object;
    QVERIFY(ObjectManager::setSharedProperty(&object, SharedProperty("p", 5)));

    object.setProperty("p", QVariant());

    QVERIFY(!ObjectManager::propertyExists(&object, "p"));
    QCOMPARE(ObjectManager::sharedPropertyNames(&object), QStringList());
}

void tst_ObjectManager::listsNamesInOrder()
{
    QObject object;
    for (const char *name : {"z", "a", "m"})
        QVERIFY(ObjectManager::setSharedProperty(&object, SharedProperty(name, 5)));
    object.setProperty("plain", 5);
    QVERIFY(ObjectManager::setSharedProperty(&object, SharedProperty("a", 6)));

    QCOMPARE(ObjectManager::sharedPropertyNames(&object), QStringList({u"z"_s, u"a"_s, u"m"_s}));
}

void tst_ObjectManager::keepsNamesBeyondAscii()
{
    QObject object;

    QVERIFY(ObjectManager::setSharedProperty(&object, SharedProperty("\xe2\x82\xac", 5)));

    QVERIFY(ObjectManager::propertyExists(&object, "\xe2\x82\xac"));
    QCOMPARE(ObjectManager::sharedPropertyNames(&object), QStringList {u"\u20ac"_s});
}

void tst_ObjectManager::acceptsTheSameValueTwice()
{
    QObject object;

    QVERIFY(ObjectManager::setSharedProperty(&object, SharedProperty("p", 5)));
    QVERIFY(ObjectManager::setSharedProperty(&object, SharedProperty("p", 5)));
}

void tst_ObjectManager::acceptsValuesThatEqualNothing_data()
{
    QTest::addColumn<QVariant>("value");

    QTest::newRow("unequal-1 no number") << QVariant(std::numeric_limits<double>::quiet_NaN());
    QTest::newRow("unequal-2 a type of one's own") << QVariant::fromValue(Unequal());
}

void tst_ObjectManager::acceptsValuesThatEqualNothing()
{
    QFETCH(QVariant, value);
    QObject object;

    QVERIFY(ObjectManager::setSharedProperty(&object, SharedProperty("p", value)));
    QVERIFY(ObjectManager::setSharedProperty(&object, SharedProperty("p", value)));

    QCOMPARE(ObjectManager::getSharedProperty(&object, "p").value().metaType(), value.metaType());
}

void tst_ObjectManager::noticesARefusal()
{
    StubbornObject object;

    QVERIFY(!ObjectManager::setSharedProperty(&object, SharedProperty("p", 5)));

    QVERIFY(!ObjectManager::propertyExists(&object, "p"));
}

void tst_ObjectManager::noticesARefusalOfAReplacement()
{
    StubbornObject object;
    object.kept = QVariant::fromValue(SharedProperty("p", 1));
    object.setProperty("p", object.kept);

    QVERIFY(!ObjectManager::setSharedProperty(&object, SharedProperty("p", 5)));

    QCOMPARE(ObjectManager::getSharedProperty(&object, "p").value(), QVariant(1));
}

void tst_ObjectManager::findsFactoriesByName()
{
    ObjectManager manager;
    FakeFactory designs(u"Designs"_s);
    FakeFactory scripts(u"Scripts"_s);
    manager.registerFactoryProvider(&designs);
    manager.registerFactoryProvider(&scripts);
    manager.registerFactoryProvider(nullptr);

    QCOMPARE(manager.factoryProvider(u"Designs"_s), &designs);
    QCOMPARE(manager.factoryProvider(u"Scripts"_s), &scripts);
    QCOMPARE(manager.factoryProvider(u"designs"_s), nullptr);
    manager.unregisterFactoryProvider(&designs);
    manager.unregisterFactoryProvider(&designs);

    QCOMPARE(manager.factoryProvider(u"Designs"_s), nullptr);
    QCOMPARE(manager.factoryProvider(u"Scripts"_s), &scripts);
}

void tst_ObjectManager::replacesAFactoryOfTheSameName()
{
    ObjectManager manager;
    FakeFactory first(u"Designs"_s);
    FakeFactory second(u"Designs"_s);
    manager.registerFactoryProvider(&first);
    manager.registerFactoryProvider(&second);

    QCOMPARE(manager.factoryProvider(u"Designs"_s), &second);
    manager.unregisterFactoryProvider(&second);
    QCOMPARE(manager.factoryProvider(u"Designs"_s), nullptr);
}

void tst_ObjectManager::canBeReplaced()
{
    ObjectManager *const standard = QtilitiesCoreApplication::objectManager();
    QVERIFY(standard);
    {
        ObjectManager mine;
        QtilitiesCoreApplication::setObjectManager(&mine);
        QCOMPARE(QtilitiesCoreApplication::objectManager(), &mine);
    }

    QCOMPARE(QtilitiesCoreApplication::objectManager(), standard);
}

GUILESS_TEST_CLASS(tst_ObjectManager)
#include "tst_ObjectManager.moc"
