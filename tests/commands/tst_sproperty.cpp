#include "tests/commands/CommandTest.h"
#include "tests/TestClass.h"

#include <Qtilities/SharedProperty.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::ObjectManager;
using Qtilities::Core::SharedProperty;

namespace {

const QByteArray usage =
    "Performs actions on property \"WIDTH %3\" in design \"uart %1\".\n"
    "Usage: sproperty args\n"
    "get category                             - Get the category of the active design property\n"
    "get name                                 - Get name the active design property\n"
    "property exists name                     - Check if the specified property exists on the "
    "active design property\n"
    "property get name                        - Get the value of the specified property on the "
    "active design property\n"
    "property remove name                     - Remove the specified property on the active "
    "design property\n"
    "property set name type value read_only   - Sets the value of the specified property on the "
    "active design property. Creates it if it does not exist\n"
    "set category new_value                   - Set the category of the active design property\n"
    "set name new_name                        - Sets the name the active design property\n";

} // namespace

// The active property of the design "uart %1" is "WIDTH %3". It has the shared properties "p" (an
// int), "fixed" (read-only and not removable) and "void" (without a value).
class tst_sproperty : public CommandTest
{
    Q_OBJECT

    void prepare(FakeHost &host) override
    {
        FakeDesign *design = host.activeDesign(u"uart %1"_s);
        FakeDesignProperty *property = design->property(u"WIDTH %3"_s, 8);
        property->levels = Qtilities::Core::QtilitiesCategory(QStringList {u"Bus"_s, u"Data"_s});
        design->propertiesActive = {property};
        SharedProperty fixed("fixed", u"value"_s);
        fixed.setReadOnly(true);
        fixed.setRemovable(false);
        ObjectManager::setSharedProperty(property, SharedProperty("p", 42));
        ObjectManager::setSharedProperty(property, fixed);
        ObjectManager::setSharedProperty(property, SharedProperty("void", QVariant()));
    }

    static FakeDesign *design(FakeHost &host) { return host.designs.open.first(); }
    static FakeDesignProperty *property(FakeHost &host)
    {
        return design(host)->allProperties.first();
    }
    static void readOnly(FakeHost &host) { property(host)->data.setReadOnly(true); }

private Q_SLOTS:
    void prologue_data()
    {
        const auto two = [](FakeHost &host) {
            design(host)->propertiesActive.append(design(host)->property(u"b"_s));
        };
        addRows({
            {"sproperty-prologue-1 no active design", "sproperty get name", TCL_ERROR,
             "No active design", "", [](FakeHost &host) { host.designs.active.clear(); }},
            {"sproperty-prologue-2 an active design that is gone", "sproperty", TCL_ERROR,
             "Failed to find active design", "",
             [](FakeHost &host) { host.designs.active = {nullptr}; }},
            {"sproperty-prologue-3 no active property", "sproperty x", TCL_ERROR,
             "No active property in design \"uart %1\"", "",
             [](FakeHost &host) { design(host)->propertiesActive.clear(); }},
            {"sproperty-prologue-4 two active properties", "sproperty x", TCL_ERROR,
             "Multiple properties are active in design \"uart %1\"", "", two},
            {"sproperty-prologue-5 a property that is gone", "sproperty get name", TCL_ERROR,
             "Failed to find active property in design \"uart %1\"", "",
             [](FakeHost &host) { delete design(host)->allProperties.takeFirst(); }},
            {"sproperty-usage-1 alone", "sproperty", TCL_ERROR, usage, ""},
            {"sproperty-usage-2 there is no exists", "sproperty exists", TCL_ERROR, usage, ""},
            {"sproperty-usage-3 nor open", "sproperty open", TCL_ERROR, usage, ""},
            {"sproperty-usage-4 get without an item", "sproperty get", TCL_ERROR, usage, ""},
            {"sproperty-usage-5 get of an unknown item", "sproperty get revision", TCL_ERROR, usage,
             ""},
            {"sproperty-usage-6 set without a value", "sproperty set name", TCL_ERROR, usage, ""},
            {"sproperty-usage-7 set without an item", "sproperty set", TCL_ERROR, usage, ""},
            {"sproperty-usage-8 set of an unknown item", "sproperty set value 5", TCL_ERROR, usage,
             ""},
            {"sproperty-usage-9 property without a name", "sproperty property get", TCL_ERROR,
             usage, ""},
            {"sproperty-usage-10 property with an unknown action", "sproperty property x p",
             TCL_ERROR, usage, ""},
        });
    }
    void prologue() { runRow(); }

    void items_data()
    {
        const QByteArray refused =
            "Active design property \"WIDTH %3\" is read only, you cannot modify it";
        addRows({
            {"sproperty-get-1", "sproperty get name x", TCL_OK, "WIDTH %3", ""},
            {"sproperty-get-2", "sproperty get category", TCL_OK, "Bus::Data", ""},
            {"sproperty-get-3 of a read-only one", "sproperty get name", TCL_OK, "WIDTH %3", "",
             readOnly},
            {"sproperty-set-1 the name, without a bracket", "sproperty set name {D %1} x", TCL_OK,
             "Successfully renamed property \"WIDTH %3\". Changed to \"D %1\"",
             "property.setName(D %1, null)"},
            {"sproperty-set-2 a refused name shows the one that is kept", "sproperty set name D",
             TCL_OK, "Successfully renamed property \"WIDTH %3\". Changed to \"WIDTH %3\"",
             "property.setName(D, null)", failing({u"property.setName(D, null)"_s})},
            {"sproperty-set-3 the category", "sproperty set category A::B", TCL_OK,
             "Successfully changed category on property \"WIDTH %3\"",
             "initExec\nproperty.setCategory(A/B)\nfinalizeExec"},
            {"sproperty-set-4 a refused category", "sproperty set category A", TCL_ERROR,
             "Failed to change category on property \"WIDTH %3\"",
             "initExec\nproperty.setCategory(A)\nfinalizeExec",
             failing({u"property.setCategory(A)"_s})},
            {"sproperty-set-5 a read-only one", "sproperty set name D", TCL_ERROR, refused, "",
             readOnly},
            {"sproperty-set-6 that comes before the number of words", "sproperty set", TCL_ERROR,
             refused, "", readOnly},
            {"sproperty-set-7 and before the item", "sproperty set value 5", TCL_ERROR, refused, "",
             readOnly},
        });
    }
    void items() { runRow(); }

    void properties_data()
    {
        const QByteArray calls = "initExec\nproperty.setProperty(q)\nfinalizeExec";
        const QByteArray done = "Successfully set property \"q\" on design property \"WIDTH %3\"";
        const QByteArray refused =
            "Active design property \"WIDTH %3\" is read only, you cannot modify it";
        addRows({
            {"sproperty-property-exists-1", "sproperty property exists p", TCL_OK, "true", ""},
            {"sproperty-property-exists-2 missing is an error", "sproperty property exists x",
             TCL_ERROR, "false", ""},
            {"sproperty-property-exists-3 on a read-only one", "sproperty property exists p",
             TCL_OK, "true", "", readOnly},
            {"sproperty-property-get-1", "sproperty property get p", TCL_OK, "42", "", readOnly},
            {"sproperty-property-get-2 missing", "sproperty property get q", TCL_ERROR,
             "Failed to get property \"q\" on design property \"WIDTH %3\". It does not exist", ""},
            {"sproperty-property-get-3 without a value", "sproperty property get void", TCL_ERROR,
             "Failed to get property \"void\" on design property \"WIDTH %3\". It exists but is "
             "invalid",
             ""},
            {"sproperty-property-remove-1", "sproperty property remove p", TCL_OK,
             "Successfully removed property \"p\" on design property \"WIDTH %3\"",
             "property.setProperty(p)"},
            {"sproperty-property-remove-2 missing", "sproperty property remove q", TCL_ERROR,
             "Failed to remove property \"q\" on design property \"WIDTH %3\". It does not exist",
             ""},
            {"sproperty-property-remove-3 not removable", "sproperty property remove fixed",
             TCL_ERROR,
             "Failed to remove property \"fixed\" on design property \"WIDTH %3\". This is a "
             "non-removable property",
             ""},
            {"sproperty-property-remove-4 on a read-only one, even a missing one",
             "sproperty property remove x", TCL_ERROR, refused, "", readOnly},
            {"sproperty-property-set-1", "sproperty property set q int 5", TCL_OK, done, calls},
            {"sproperty-property-set-2 read-only", "sproperty property set q int 5 TRUE", TCL_OK,
             done, calls},
            {"sproperty-property-set-3 a word that is neither",
             "sproperty property set q int 5 maybe", TCL_ERROR,
             "Making a property read only is specified using \"true\" or \"false\" (Case "
             "Insensitive)",
             ""},
            {"sproperty-property-set-9 with more words it is not looked at",
             "sproperty property set q int 5 maybe x", TCL_OK, done, calls},
            {"sproperty-property-set-4 too few words", "sproperty property set q int", TCL_ERROR,
             "You did not provide enough parameters to set property \"q\" on design property "
             "\"WIDTH %3\"",
             ""},
            {"sproperty-property-set-5 a read-only shared property", "sproperty property set fixed",
             TCL_ERROR,
             "Failed to set value of property \"fixed\" on design property \"WIDTH %3\". This is a "
             "read only property",
             ""},
            {"sproperty-property-set-6 a value that is not of its type",
             "sproperty property set q int five", TCL_ERROR,
             "Failed to set property \"q\" on design property \"WIDTH %3\". Property type and "
             "value "
             "combination is invalid",
             ""},
            {"sproperty-property-set-7 refused", "sproperty property set {} int 5", TCL_ERROR,
             "Failed to set property \"\" on design property \"WIDTH %3\"",
             "initExec\nfinalizeExec"},
            {"sproperty-property-set-8 on a read-only one", "sproperty property set fixed",
             TCL_ERROR, refused, "", readOnly},
        });
    }
    void properties() { runRow(); }

    void theStoredPropertyStaysWritable()
    {
        renewHost();
        QCOMPARE(eval("sproperty property set q int 5 TRUE").code, TCL_OK);
        QVERIFY(!ObjectManager::getSharedProperty(property(host()), "q").isReadOnly());
    }
};

TEST_CLASS(tst_sproperty)
#include "tst_sproperty.moc"
