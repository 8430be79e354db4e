#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <QTest>

#include <limits>
#include <optional>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::ObjectManager;
using Qtilities::Core::SharedProperty;

// Shared properties of design items, which live in the component file.
class tst_SharedProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        session.emplace();
        design = session->create(u"a"_s);
        QVERIFY(design->addFile(u"x.v"_s, QString(), true, nullptr));
        QVERIFY(design->addProperty(u"p"_s, {}, 1, false, nullptr));
        QVERIFY(design->saveToComponentFile(nullptr));
        session->takeLog();
    }
    void cleanup() { session.reset(); }

    void keepsValuesOfEveryType_data();
    void keepsValuesOfEveryType();
    void keepsTheOrderOfAttachment();
    void replacesAndRemoves();
    void refusesWhatTheFileCannotCarry_data();
    void refusesWhatTheFileCannotCarry();
    void refusesEveryChangeOfAReadOnlyDesign();
    void leavesOtherDynamicPropertiesAlone();
    void keepsEveryCharacterOfAName();

private:
    enum Kind { File, Folder, Property };

    QObject *item(Kind kind) const
    {
        if (kind == File)
            return design->fileByActualPath(u"x.v"_s, false);
        if (kind == Folder)
            return design->folderByActualPath(u"files"_s);
        return design->propertyByName(u"p"_s);
    }
    static QVariant value(const QObject *object, const char *name)
    {
        return ObjectManager::getSharedProperty(object, name).value();
    }

    std::optional<SessionFixture> session;
    IDesign *design = nullptr;
};

void tst_SharedProperties::keepsValuesOfEveryType_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QVariant>("value");
    const QList<QVariant> values {true,
                                  -2147483647 - 1,
                                  4294967295U,
                                  0.1,
                                  std::numeric_limits<double>::infinity(),
                                  u"a \"b\" <&> %1 \U0001F600 ä"_s,
                                  u" lines\n\tand\r blanks "_s,
                                  QString()};
    for (const int kind : {File, Folder, Property}) {
        for (const QVariant &value : values)
            QTest::newRow(
                qPrintable(u"shared %1 %2"_s.arg(kind).arg(value.toString().simplified())))
                << kind << value;
    }
}

void tst_SharedProperties::keepsValuesOfEveryType()
{
    QFETCH(int, kind);
    QFETCH(QVariant, value);
    QVERIFY(!ObjectManager::propertyExists(item(Kind(kind)), "my prop"));
    QVERIFY(ObjectManager::setSharedProperty(item(Kind(kind)), SharedProperty("my prop", value)));
    QVERIFY(design->isModified());
    design = session->reopen(design);
    QVERIFY(ObjectManager::propertyExists(item(Kind(kind)), "my prop"));
    QCOMPARE(this->value(item(Kind(kind)), "my prop"), value);
    QVERIFY(!design->isModified());
}

void tst_SharedProperties::keepsTheOrderOfAttachment()
{
    for (const char *name : {"z", "a", "m"})
        QVERIFY(ObjectManager::setSharedProperty(item(File), SharedProperty(name, 1)));
    design = session->reopen(design);
    QCOMPARE(ObjectManager::sharedPropertyNames(item(File)),
             (QStringList {u"z"_s, u"a"_s, u"m"_s}));
}

void tst_SharedProperties::replacesAndRemoves()
{
    QVERIFY(ObjectManager::setSharedProperty(item(File), SharedProperty("a", 1)));
    QVERIFY(ObjectManager::setSharedProperty(item(File), SharedProperty("a", u"text"_s)));
    QVERIFY(ObjectManager::setSharedProperty(item(File), SharedProperty("b", 2)));
    item(File)->setProperty("b", QVariant());
    design = session->reopen(design);
    QCOMPARE(value(item(File), "a"), QVariant(u"text"_s));
    QVERIFY(!ObjectManager::propertyExists(item(File), "b"));
    item(File)->setProperty("a", QVariant());
    QVERIFY(design->saveToComponentFile(nullptr));
    QVERIFY(!SessionFixture::read(design->componentFileName()).contains("shared"));
}

void tst_SharedProperties::refusesWhatTheFileCannotCarry_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("shared-refused-1 a zero in the value")
        << QByteArray("p") << QVariant(u"a"_s + QChar(0) + u"b"_s);
    QTest::newRow("shared-refused-2 half a character")
        << QByteArray("p") << QVariant(QString(QChar(0xd800)));
    QTest::newRow("shared-refused-3 a bell in the name") << QByteArray("p\a") << QVariant(1);
    QTest::newRow("shared-refused-4 no value") << QByteArray("p") << QVariant();
}

void tst_SharedProperties::refusesWhatTheFileCannotCarry()
{
    QFETCH(QByteArray, name);
    QFETCH(QVariant, value);
    QVERIFY(ObjectManager::setSharedProperty(item(File), SharedProperty("p", 5)));
    QVERIFY(design->saveToComponentFile(nullptr));
    QVERIFY(!ObjectManager::setSharedProperty(item(File), SharedProperty(name.constData(), value)));
    QCOMPARE(ObjectManager::sharedPropertyNames(item(File)), QStringList {u"p"_s});
    QCOMPARE(this->value(item(File), "p"), QVariant(5));
    QVERIFY(!design->isModified());
    QCOMPARE(session->takeLog().size(), 1);
}

void tst_SharedProperties::refusesEveryChangeOfAReadOnlyDesign()
{
    for (const Kind kind : {File, Folder, Property})
        QVERIFY(ObjectManager::setSharedProperty(item(kind), SharedProperty("a", 1)));
    design->setReadOnly(true);
    for (const Kind kind : {File, Folder, Property}) {
        QVERIFY(!ObjectManager::setSharedProperty(item(kind), SharedProperty("a", 2)));
        QVERIFY(!ObjectManager::setSharedProperty(item(kind), SharedProperty("b", 2)));
        item(kind)->setProperty("a", QVariant());
        QCOMPARE(value(item(kind), "a"), QVariant(1));
        QVERIFY(!ObjectManager::propertyExists(item(kind), "b"));
    }
    QCOMPARE(session->takeLog(), QStringList(9, u"Warning: The design \"a\" is read-only"_s));
}

void tst_SharedProperties::leavesOtherDynamicPropertiesAlone()
{
    item(File)->setProperty("plain", 5);
    QVERIFY(!design->isModified());
    design->setReadOnly(true);
    item(File)->setProperty("plain", 6);
    QCOMPARE(item(File)->property("plain"), QVariant(6));
    item(File)->setProperty("plain", QVariant());
    QCOMPARE(session->takeLog(), QStringList());
}

void tst_SharedProperties::keepsEveryCharacterOfAName()
{
    const char name[] = "\ufeffa\ufeff";
    QVERIFY(ObjectManager::setSharedProperty(item(File), SharedProperty(name, u"\ufeffb"_s)));
    QVERIFY(design->saveToComponentFile(nullptr));
    design = session->reopen(design);
    QVERIFY(design);
    QCOMPARE(ObjectManager::sharedPropertyNames(item(File)), QStringList {u"\ufeffa\ufeff"_s});
    QCOMPARE(value(item(File), name), u"\ufeffb"_s);
}

TEST_CLASS(tst_SharedProperties)
#include "tst_SharedProperties.moc"
