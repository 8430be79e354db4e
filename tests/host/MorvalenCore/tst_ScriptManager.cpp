#include "tests/fakes/FakeDesignManager.h"
#include "tests/TestClass.h"

#include <MorvalenCore/ScriptManager.h>

#include <Qtilities/FactoryItem.h>

#include <QTest>

#include <memory>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::AbstractScriptedAction;
using MorvalenCore::DesignManager;
using MorvalenCore::LinkedScriptParameters;
using MorvalenCore::ScriptManager;
using Qtilities::Core::FactoryItem;
using Qtilities::Core::InstanceFactoryInfo;

namespace {

int livingObjects = 0;

class FakeAction : public AbstractScriptedAction
{
public:
    explicit FakeAction(QObject *parent) : AbstractScriptedAction(parent) { ++livingObjects; }
    ~FakeAction() override { --livingObjects; }

    InstanceFactoryInfo instanceFactoryInfo() const override { return {}; }
    void execute() override { }
    int execute(bool *, QString *) override { return 0; }
};

class Stranger : public QObject
{
public:
    explicit Stranger(QObject *parent) : QObject(parent) { ++livingObjects; }
    ~Stranger() override { --livingObjects; }
};

// Knows factories by their tags.
class FactoryManager : public FakeDesignManager
{
public:
    using FakeDesignManager::FakeDesignManager;

    const ObjectFactory *factory(const QString &tag) const override { return factories.value(tag); }

    QHash<QString, const ObjectFactory *> factories;
};

const LinkedScriptParameters tclParameters {u"text/x-tcl"_s, u"Design Factory"_s, u"text/x-tcl"_s};

} // namespace

// Script types, and the actions made for script files.
class tst_ScriptManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void startsWithoutTypes();
    void knowsTypes();
    void replacesWhatItKnewOfAType();
    void makesActions_data();
    void makesActions();
    void usesTheInstanceTag();
    void refuses_data();
    void refuses();
    void refusesWithoutADesignManager();
    void canBeReplaced();

private:
    Journal journal;
    std::unique_ptr<FactoryManager> designs;
    std::unique_ptr<ScriptManager> manager;
    FactoryItem<QObject, FakeAction> actions;
    FactoryItem<QObject, Stranger> strangers;
};

void tst_ScriptManager::init()
{
    designs = std::make_unique<FactoryManager>(journal);
    designs->factories = {{u"text/x-tcl"_s, &actions}, {u"strange"_s, &strangers}};
    DesignManager::setInstance(designs.get());
    manager = std::make_unique<ScriptManager>();
}

void tst_ScriptManager::cleanup()
{
    DesignManager::setInstance(nullptr);
    manager.reset();
    designs.reset();
    QCOMPARE(livingObjects, 0);
}

void tst_ScriptManager::startsWithoutTypes()
{
    QCOMPARE(manager->knownScriptTypes(), QStringList());
    QCOMPARE(manager->scriptParameters(u"text/x-tcl"_s), LinkedScriptParameters());
}

void tst_ScriptManager::knowsTypes()
{
    const LinkedScriptParameters other {u"b"_s, u"c"_s, u"d"_s};
    manager->addKnownScriptType(u"text/x-tcl"_s, tclParameters);
    manager->addKnownScriptType(u"text/a"_s, other);

    QCOMPARE(manager->knownScriptTypes(), QStringList({u"text/a"_s, u"text/x-tcl"_s}));
    QCOMPARE(manager->scriptParameters(u"text/x-tcl"_s), tclParameters);
    QCOMPARE(manager->scriptParameters(u"text/a"_s), other);
    QCOMPARE(manager->scriptParameters(u"TEXT/A"_s), LinkedScriptParameters());
}

void tst_ScriptManager::replacesWhatItKnewOfAType()
{
    manager->addKnownScriptType(u"text/x-tcl"_s, {u"old"_s, u"old"_s, u"old"_s});
    manager->addKnownScriptType(u"text/x-tcl"_s, tclParameters);

    QCOMPARE(manager->knownScriptTypes(), QStringList {u"text/x-tcl"_s});
    QCOMPARE(manager->scriptParameters(u"text/x-tcl"_s), tclParameters);
}

void tst_ScriptManager::makesActions_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");

    QTest::newRow("action-1 the name is the file's") << u"/a/clean up.tcl"_s << u"clean up"_s;
    QTest::newRow("action-2 only the last suffix goes") << u"/a/b.c.tcl"_s << u"b.c"_s;
    QTest::newRow("action-3 no suffix") << u"run"_s << u"run"_s;
}

void tst_ScriptManager::makesActions()
{
    QFETCH(QString, path);
    QFETCH(QString, name);
    manager->addKnownScriptType(u"text/x-tcl"_s, tclParameters);

    const std::unique_ptr<AbstractScriptedAction> action(
        manager->createAction(u"text/x-tcl"_s, path));

    QVERIFY(action);
    QCOMPARE(action->parent(), nullptr);
    QCOMPARE(action->filePath(), path);
    QCOMPARE(action->getName(), name);
    QCOMPARE(livingObjects, 1);
}

void tst_ScriptManager::usesTheInstanceTag()
{
    manager->addKnownScriptType(u"a type"_s, {u"x"_s, u"y"_s, u"text/x-tcl"_s});

    const std::unique_ptr<AbstractScriptedAction> action(
        manager->createAction(u"a type"_s, u"/a.tcl"_s));

    QVERIFY(action);
}

void tst_ScriptManager::refuses_data()
{
    QTest::addColumn<QString>("type");

    QTest::newRow("no-action-1 a type that is not known") << u"text/x-perl"_s;
    QTest::newRow("no-action-2 no type") << u""_s;
    QTest::newRow("no-action-3 another case") << u"TEXT/X-TCL"_s;
    QTest::newRow("no-action-4 a factory that is not known") << u"orphan"_s;
    QTest::newRow("no-action-5 a factory that makes something else") << u"strange"_s;
}

void tst_ScriptManager::refuses()
{
    QFETCH(QString, type);
    manager->addKnownScriptType(u"text/x-tcl"_s, tclParameters);
    manager->addKnownScriptType(u"orphan"_s, {u"orphan"_s, u""_s, u"nowhere"_s});
    manager->addKnownScriptType(u"strange"_s, {u"strange"_s, u""_s, u"strange"_s});

    QCOMPARE(manager->createAction(type, u"/a.tcl"_s), nullptr);

    QCOMPARE(livingObjects, 0);
}

void tst_ScriptManager::refusesWithoutADesignManager()
{
    manager->addKnownScriptType(u"text/x-tcl"_s, tclParameters);
    DesignManager::setInstance(nullptr);

    QCOMPARE(manager->createAction(u"text/x-tcl"_s, u"/a.tcl"_s), nullptr);
}

void tst_ScriptManager::canBeReplaced()
{
    ScriptManager *const standard = ScriptManager::instance();
    QVERIFY(standard);

    ScriptManager::setInstance(manager.get());
    QCOMPARE(ScriptManager::instance(), manager.get());
    manager.reset();

    QCOMPARE(ScriptManager::instance(), standard);
}

GUILESS_TEST_CLASS(tst_ScriptManager)
#include "tst_ScriptManager.moc"
