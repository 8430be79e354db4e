#include "tests/commands/CommandTest.h"
#include "tests/TestClass.h"

#include <QSettings>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray usage =
    "Usage: designs args\n"
    "add file_name                                - Add design from the specified file\n"
    "backups_path                                 - Return the default path used to backup "
    "designs\n"
    "close id 'delete_wf                          - Remove specfied design and removes its "
    "working folder if needed. Be carefull, this cannot be undone\n"
    "close_all 'delete_wf                         - Remove all open designs and their working "
    "folders if needed. Be carefull, this cannot be undone\n"
    "designs_path                                 - Return the default path used to store "
    "design working folders\n"
    "list                                         - Return with the ids of open designs\n"
    "new name 'type 'structure 'library 'vendor   - Create a new design with the parameters "
    "given\n"
    "set_active id                                - Set specified design as active\n"
    "structures 'type                             - Return a list of available structures for "
    "designs of \"type\". When type is empty, all structures are returned\n"
    "structures get_default type                  - Gets the default structure for the "
    "specified design type\n"
    "structures set_default type structure_name   - Sets the default structure for the "
    "specified design type\n"
    "types                                        - Return a list of available design types\n";

// The calls of a successful "designs new", up to a given line.
const QByteArrayList creation = {
    "manager.checkDesignName(x, new)",
    "initExec",
    "factory.createInstance(Design Factory, Custom Design, x)",
    "product.setObjectName(x)",
    "design.setVendor(acme inc)",
    "design.setLibrary(global)",
    "design.setName(x)",
    "design.setStructureId(id of Flat)",
    "structures.repositoryPath(Flat, true)",
    "design.assignPhysicalWorkingFolderPath(/repository/x)",
    "manager.attachDesign(x, true, 0)",
    "finalizeExec",
};

QByteArray callsUntil(qsizetype count, const QByteArrayList &more)
{
    return (creation.first(count) + more).join('\n');
}

} // namespace

class tst_designs : public CommandTest
{
    Q_OBJECT

    void prepare(FakeHost &host) override
    {
        host.designs.openDesign(u"uart"_s);
        host.designs.openDesign(u"my %1 \"core\""_s);
        host.designs.paths = {{0, u"/backups"_s}, {1, u"/the designs\\here"_s}};
        host.designs.settingsFile = settings.filePath(u"settings.ini"_s);
    }

    QTemporaryDir settings;

private Q_SLOTS:
    void initTestCase()
    {
        QSettings file(settings.filePath(u"settings.ini"_s), QSettings::IniFormat);
        file.setValue(u"Designs/Environment/organization_name", u"acme inc"_s);
    }

    void dispatch_data()
    {
        addRows({
            {"designs-usage-1 alone", "designs", TCL_ERROR, usage, ""},
            {"designs-usage-2 an unknown word", "designs frobnicate", TCL_ERROR, usage, ""},
            {"designs-usage-3 words are case-sensitive", "designs List", TCL_ERROR, usage, ""},
            {"designs-usage-4 an empty word", "designs {}", TCL_ERROR, usage, ""},
            {"designs-list-1", "designs list", TCL_OK,
             "\"acme.global.uart.1.0\" \"acme.global.my %1 \"core\".1.0\"", ""},
            {"designs-list-2 further words are ignored", "designs list a b c", TCL_OK,
             "\"acme.global.uart.1.0\" \"acme.global.my %1 \"core\".1.0\"", ""},
            {"designs-list-3 none", "designs list", TCL_OK, "", "",
             [](FakeHost &host) {
                 qDeleteAll(host.designs.open);
                 host.designs.open.clear();
             }},
            {"designs-types-1", "designs types", TCL_OK, "\"Custom Design\" \"Hardware Design\"",
             ""},
            {"designs-types-2 further words are ignored", "designs types a b", TCL_OK,
             "\"Custom Design\" \"Hardware Design\"", ""},
            {"designs-paths-1 separators stay", "designs designs_path", TCL_OK,
             "/the designs\\here", ""},
            {"designs-paths-2", "designs backups_path x y z", TCL_OK, "/backups", ""},
        });
    }
    void dispatch() { runRow(); }

    void setActive_data()
    {
        addRows({
            {"designs-set_active-1", "designs set_active acme.global.uart.1.0", TCL_OK,
             "Successfully changed active design to \"acme.global.uart.1.0\"",
             "initExec\nmanager.setActiveDesign(acme.global.uart.1.0)\nfinalizeExec"},
            {"designs-set_active-2 an id with a placeholder and quotes",
             "designs set_active {acme.global.my %1 \"core\".1.0} x", TCL_OK,
             "Successfully changed active design to \"acme.global.my %1 \"core\".1.0\"",
             "initExec\nmanager.setActiveDesign(acme.global.my %1 \"core\".1.0)\nfinalizeExec"},
            {"designs-set_active-3 no id", "designs set_active", TCL_ERROR,
             "ID \"\" does not match the ID of an open design", ""},
            {"designs-set_active-4 ids are case-sensitive",
             "designs set_active acme.global.UART.1.0", TCL_ERROR,
             "ID \"acme.global.UART.1.0\" does not match the ID of an open design", ""},
        });
    }
    void setActive() { runRow(); }

    void structures_data()
    {
        addRows({
            {"designs-structures-1 all", "designs structures", TCL_OK, "\"Flat\" \"Deep one\"", ""},
            {"designs-structures-2 an empty type gives all", "designs structures {}", TCL_OK,
             "\"Flat\" \"Deep one\"", ""},
            {"designs-structures-3 of a type", "designs structures {Custom Design}", TCL_OK,
             "\"Flat\"", ""},
            {"designs-structures-4 of an unknown type", "designs structures none", TCL_OK, "", ""},
            {"designs-structures-5 an operation without a type is a type",
             "designs structures get_default", TCL_OK, "", ""},
            {"designs-structures-6 default", "designs structures get_default {Custom Design}",
             TCL_OK, "Flat", ""},
            {"designs-structures-7 no default", "designs structures get_default {no %1}", TCL_ERROR,
             "Default structure does not exist for design type \"no %1\"", ""},
            {"designs-structures-8 set default", "designs structures set_default T S", TCL_OK,
             "Successfully set default structure for design type \"T\"",
             "structures.setDefault(T, S)"},
            {"designs-structures-9 set default fails", "designs structures set_default {T %2} S",
             TCL_ERROR, "Failed to set default structure for design type \"T %2\"",
             "structures.setDefault(T %2, S)", failing({u"structures.setDefault(T %2, S)"_s})},
            {"designs-structures-10 get_default has no fourth word",
             "designs structures get_default T x", TCL_ERROR, usage, ""},
            {"designs-structures-11 set_default wants both", "designs structures set_default T",
             TCL_ERROR, usage, ""},
            {"designs-structures-12 too many", "designs structures set_default T S x", TCL_ERROR,
             usage, ""},
            {"designs-structures-13 an unknown operation", "designs structures default T",
             TCL_ERROR, usage, ""},
        });
    }
    void structures() { runRow(); }

    void close_data()
    {
        const QByteArray id = "acme.global.uart.1.0";
        addRows({
            {"designs-close-1", "designs close " + id, TCL_OK,
             "Successfully closed design \"" + id + "\"",
             "initExec\nmanager.closeDesign(" + id + ", false)\nfinalizeExec"},
            {"designs-close-2 with its folder", "designs close " + id + " true", TCL_OK,
             "Successfully removed design \"" + id
                 + "\" and marked its working folder for deletion",
             "initExec\nmanager.closeDesign(" + id + ", true)\nfinalizeExec"},
            {"designs-close-3 only the exact word deletes", "designs close " + id + " TRUE", TCL_OK,
             "Successfully closed design \"" + id + "\"",
             "initExec\nmanager.closeDesign(" + id + ", false)\nfinalizeExec"},
            {"designs-close-4 an unknown id", "designs close {no %1}", TCL_ERROR,
             "ID \"no %1\" does not match the ID of an open design", ""},
            {"designs-close-5 no id", "designs close", TCL_ERROR, usage, ""},
            {"designs-close-6 too many words", "designs close " + id + " true x", TCL_ERROR, usage,
             ""},
            {"designs-close-7 the host's refusal is not looked at",
             "designs close " + id,
             TCL_OK,
             "Successfully closed design \"" + id + "\"",
             {},
             failing({u"manager.closeDesign(acme.global.uart.1.0, false)"_s})},
        });
    }
    void close() { runRow(); }

    void closeAll_data()
    {
        const QByteArray ids = "acme.global.uart.1.0 acme.global.my %1 \"core\".1.0";
        const QByteArray kept = "Successfully closed all open designs";
        addRows({
            {"designs-close_all-1", "designs close_all", TCL_OK, kept,
             "initExec\nmanager.closeDesigns(" + ids + ", false)\nfinalizeExec"},
            {"designs-close_all-2 with their folders", "designs close_all true", TCL_OK,
             kept + " and marked their working folder for deletion",
             "initExec\nmanager.closeDesigns(" + ids + ", true)\nfinalizeExec"},
            {"designs-close_all-3 only the exact word deletes", "designs close_all True", TCL_OK,
             kept, "initExec\nmanager.closeDesigns(" + ids + ", false)\nfinalizeExec"},
            {"designs-close_all-4 too many words", "designs close_all true true", TCL_ERROR, usage,
             ""},
        });
    }
    void closeAll() { runRow(); }

    void add_data()
    {
        addRows({
            {"designs-add-1", "designs add {/a b.xml}", TCL_OK,
             "Successfully parsed design from \"/a b.xml\"",
             "initExec\nmanager.parseDesignFromFile(, /a b.xml)\nfinalizeExec"},
            {"designs-add-2 further words are ignored", "designs add /a.xml x y", TCL_OK,
             "Successfully parsed design from \"/a.xml\"",
             "initExec\nmanager.parseDesignFromFile(, /a.xml)\nfinalizeExec"},
            {"designs-add-3 failure", "designs add %1", TCL_ERROR,
             "Failed to parse design from \"%1\"",
             "initExec\nmanager.parseDesignFromFile(, %1)\nfinalizeExec",
             failing({u"manager.parseDesignFromFile(, %1)"_s})},
            {"designs-add-4 without a file the host is asked all the same", "designs add",
             TCL_ERROR, "Failed to parse design from \"\"",
             "initExec\nmanager.parseDesignFromFile(, )\nfinalizeExec",
             failing({u"manager.parseDesignFromFile(, )"_s})},
        });
    }
    void add() { runRow(); }

    void create_data()
    {
        const auto making = [](FakeDesignFactory::Product product) {
            return [product](FakeHost &host) { host.factory.product = product; };
        };
        addRows({
            {"designs-new-1 a name alone", "designs new x", TCL_OK,
             "Successfully created new design \"x\"", creation.join('\n')},
            {"designs-new-2 everything given, and more",
             "designs new y {Hardware Design} {Deep one} lib ven more", TCL_OK,
             "Successfully created new design \"y\"",
             "manager.checkDesignName(y, new)\n"
             "initExec\n"
             "factory.createInstance(Design Factory, Hardware Design, y)\n"
             "product.setObjectName(y)\n"
             "design.setVendor(ven)\n"
             "design.setLibrary(lib)\n"
             "design.setName(y)\n"
             "design.setStructureId(id of Deep one)\n"
             "structures.repositoryPath(Deep one, true)\n"
             "design.assignPhysicalWorkingFolderPath(/repository/y)\n"
             "manager.attachDesign(y, true, 0)\n"
             "finalizeExec"},
            {"designs-new-3 an empty structure is the type's default",
             "designs new x {Custom Design} {}", TCL_OK, "Successfully created new design \"x\"",
             creation.join('\n')},
            {"designs-new-4 no name", "designs new", TCL_ERROR,
             "Not enough parameters to create new design. Specify at least a name, type and "
             "structure",
             ""},
            {"designs-new-5 a name that the host refuses", "designs new x none", TCL_ERROR,
             "The name cannot be used", callsUntil(1, {}),
             failing({u"manager.checkDesignName(x, new)"_s})},
            {"designs-new-6 an unknown type", "designs new x {none %1}", TCL_ERROR,
             "Design type \"none %1\" is does not exist", callsUntil(1, {})},
            {"designs-new-7 an empty type", "designs new x {}", TCL_ERROR,
             "Design type \"\" is does not exist", callsUntil(1, {})},
            {"designs-new-8 an unknown structure", "designs new x {Custom Design} {none %1}",
             TCL_ERROR, "File design structure \"none %1\" does not exist", callsUntil(1, {})},
            {"designs-new-9 a type without a default structure", "designs new x {Hardware Design}",
             TCL_ERROR, "File design structure \"\" does not exist", callsUntil(1, {})},
            {"designs-new-10 no factory", "designs new x", TCL_ERROR,
             "Cannot find factory to construct design of type \"Custom Design\"",
             callsUntil(2, {"finalizeExec"}),
             [](FakeHost &host) { host.objects.unregisterFactoryProvider(&host.factory); }},
            {"designs-new-11 the factory makes nothing", "designs new x", TCL_ERROR,
             "Something went wrong (2) while constructing design of type \"Custom Design\"",
             callsUntil(3, {"finalizeExec"}), making(FakeDesignFactory::NothingAtAll)},
            {"designs-new-12 the factory makes something else", "designs new x", TCL_ERROR,
             "Something went wrong (1) while constructing design of type \"Custom Design\"",
             callsUntil(4, {"product.destroyed()", "finalizeExec"}),
             making(FakeDesignFactory::PlainObject)},
            {"designs-new-13 the working folder is refused", "designs new x", TCL_ERROR,
             "Cannot assign a physical working folder path for the new design at path "
             "\"/repository/x\"",
             callsUntil(10, {"product.destroyed()", "finalizeExec"}),
             failing({u"design.assignPhysicalWorkingFolderPath(/repository/x)"_s})},
            {"designs-new-14 the manager does not take it", "designs new x", TCL_ERROR,
             "Failed to attach new design \"x\" to the design manager",
             callsUntil(11, {"product.destroyed()", "finalizeExec"}),
             failing({u"manager.attachDesign(x, true, 0)"_s})},
        });
    }
    void create() { runRow(); }

    void thePathOfANewFolderIsClean()
    {
        renewHost();
        host().structures.repository = u"//repository/./a/../"_s;
        QCOMPARE(eval("designs new x").code, TCL_OK);
        QVERIFY(host().journal.take().contains(
            u"design.assignPhysicalWorkingFolderPath(/repository/x)"_s));
    }

    void anErrorTextIsAnErrorEvenWhenItIsEmpty()
    {
        renewHost();
        host().designs.refusal.clear();
        host().journal.fail(u"manager.checkDesignName(x, new)"_s);
        const Answer answer = eval("designs new x");
        QCOMPARE(answer.text, QString());
        QCOMPARE(answer.code, TCL_ERROR);
    }

    void withoutSettingsTheVendorIsEmpty()
    {
        renewHost();
        host().designs.settingsFile = settings.filePath(u"none.ini"_s);
        QCOMPARE(eval("designs new x").code, TCL_OK);
        QVERIFY(host().journal.take().contains(u"design.setVendor()"_s));
    }
};

TEST_CLASS(tst_designs)
#include "tst_designs.moc"
