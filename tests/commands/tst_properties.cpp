#include "tests/commands/CommandTest.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray usage =
    "Performs actions on properties in design \"uart %1\".\n"
    "Usage: properties args\n"
    "category name                    - Get the category of specified property in the design\n"
    "contains name                    - Check if a property exists in the design\n"
    "list                             - List all properties in the design\n"
    "remove name                      - Remove specified property\n"
    "remove_all                       - Remove all properties in the active design\n"
    "set name type value 'read_only   - Set specified property on active design\n"
    "set_active name                  - Set specified property active\n";

} // namespace

// The design "uart %1" has the properties "WIDTH" (removable), "no %2" (not removable).
class tst_properties : public CommandTest
{
    Q_OBJECT

    void prepare(FakeHost &host) override
    {
        FakeDesign *design = host.activeDesign(u"uart %1"_s);
        design->property(u"WIDTH"_s, 8)->levels =
            Qtilities::Core::QtilitiesCategory(QStringList {u"Bus"_s, u"Data"_s});
        design->property(u"no %2"_s, u"v"_s)->data.setRemovable(false);
    }

    static void withoutProperties(FakeHost &host)
    {
        FakeDesign *design = host.designs.open.first();
        qDeleteAll(design->allProperties);
        design->allProperties.clear();
    }

private Q_SLOTS:
    void prologue_data()
    {
        addRows({
            {"properties-prologue-1 no active design", "properties set p", TCL_ERROR,
             "No active design", "", [](FakeHost &host) { host.designs.active.clear(); }},
            {"properties-prologue-2 an active design that is gone", "properties", TCL_ERROR,
             "Failed to find active design", "",
             [](FakeHost &host) { host.designs.active = {nullptr}; }},
            {"properties-usage-1 alone", "properties", TCL_ERROR, usage, ""},
            {"properties-usage-2 an unknown word", "properties frobnicate", TCL_ERROR, usage, ""},
            {"properties-usage-3 nothing is deleted from disk", "properties delete WIDTH",
             TCL_ERROR, usage, ""},
            {"properties-usage-4 nor are all", "properties delete_all", TCL_ERROR, usage, ""},
            {"properties-usage-5 set_active without a name", "properties set_active", TCL_ERROR,
             usage, ""},
            {"properties-usage-6 add without a name", "properties add", TCL_ERROR, usage, ""},
            {"properties-usage-7 remove without a name", "properties remove", TCL_ERROR, usage, ""},
            {"properties-usage-8 contains without a name", "properties contains", TCL_ERROR, usage,
             ""},
            {"properties-usage-9 category without a name", "properties category", TCL_ERROR, usage,
             ""},
            {"properties-usage-10 remove_all takes no word", "properties remove_all x", TCL_ERROR,
             usage, ""},
            {"properties-usage-11 list takes no word", "properties list x", TCL_ERROR, usage, ""},
        });
    }
    void prologue() { runRow(); }

    void one_data()
    {
        addRows({
            {"properties-set_active-1", "properties set_active {no %2} x", TCL_OK,
             "Successfully changed active property in design \"uart %1\" to \"no %2\"",
             "design.propertyByName(no %2)\n"
             "initExec\ndesign.setActiveProperties(no %2)\nfinalizeExec"},
            {"properties-set_active-2 not found", "properties set_active x", TCL_ERROR,
             "Property \"x\" does not match any properties in design \"uart %1\"",
             "design.propertyByName(x)"},
            {"properties-add-1 works though the usage does not tell", "properties add p x", TCL_OK,
             "Successfully added property \"p\" to design \"uart %1\"",
             "initExec\ndesign.addProperty(p, , QString, , false)\nfinalizeExec"},
            {"properties-add-2 refused", "properties add %3", TCL_ERROR,
             "Failed to add property \"%3\" to design \"uart %1\": The design refuses it",
             "initExec\ndesign.addProperty(%3, , QString, , false)\nfinalizeExec",
             failing({u"design.addProperty(%3, , QString, , false)"_s})},
            {"properties-remove-1", "properties remove WIDTH x", TCL_OK,
             "Successfully removed property \"WIDTH\" from design \"uart %1\"",
             "design.propertyByName(WIDTH)\n"
             "initExec\ndesign.removeProperty(WIDTH)\nfinalizeExec"},
            {"properties-remove-2 refused", "properties remove WIDTH", TCL_ERROR,
             "Failed to remove property \"WIDTH\" from design \"uart %1\": ",
             "design.propertyByName(WIDTH)\n"
             "initExec\ndesign.removeProperty(WIDTH)\nfinalizeExec",
             failing({u"design.removeProperty(WIDTH)"_s})},
            {"properties-remove-3 not removable", "properties remove {no %2}", TCL_ERROR,
             "Property \"no %2\" is non-removable only, you cannot remove it",
             "design.propertyByName(no %2)"},
            {"properties-remove-4 not found", "properties remove width", TCL_ERROR,
             "Property \"width\" does not match any properties in design \"uart %1\"",
             "design.propertyByName(width)"},
            {"properties-contains-1", "properties contains WIDTH x", TCL_OK, "true",
             "design.propertyByName(WIDTH)"},
            {"properties-contains-2 missing is an error", "properties contains {}", TCL_ERROR,
             "false", "design.propertyByName()"},
            {"properties-category-1", "properties category WIDTH x", TCL_OK, "Bus::Data",
             "design.propertyByName(WIDTH)"},
            {"properties-category-2 not found", "properties category x", TCL_ERROR,
             "Property \"x\" does not match any properties in design \"uart %1\"",
             "design.propertyByName(x)"},
        });
    }
    void one() { runRow(); }

    void all_data()
    {
        const QByteArray removals =
            "initExec\ndesign.removeProperty(WIDTH)\ndesign.removeProperty(no %2)\nfinalizeExec";
        addRows({
            {"properties-remove_all-1 asks for all of them", "properties remove_all", TCL_OK,
             "Successfully removed \"2\" properties from design \"uart %1\"", removals},
            {"properties-remove_all-2 a failure does not stop it", "properties remove_all",
             TCL_ERROR,
             "Failed to remove needed properties. Only \"1\" of \"2\" properties were removed from "
             "design \"uart %1\": ",
             removals, failing({u"design.removeProperty(WIDTH)"_s})},
            {"properties-remove_all-3 none", "properties remove_all", TCL_ERROR,
             "No properties found to remove from design \"uart %1\"", "", withoutProperties},
            {"properties-list-1", "properties list", TCL_OK, "\"WIDTH\" \"no %2\"", ""},
            {"properties-list-2 none is an error", "properties list", TCL_ERROR,
             "No properties found in design \"uart %1\"", "", withoutProperties},
        });
    }
    void all() { runRow(); }

    void set_data()
    {
        const QByteArray tooFew = "You did not provide enough parameters to set property \"";
        const QByteArray badWord = "Making a property read only is specified using \"true\" or "
                                   "\"false\" (Case Insensitive)";
        const QByteArray added = "design.propertyByName(p)\ninitExec\n"
                                 "design.addProperty(p, , int, 5, false)\nfinalizeExec";
        addRows({
            {"properties-set-1 a new one", "properties set p int 5", TCL_OK,
             "Successfully set property \"p\" on design \"uart %1\"", added},
            {"properties-set-2 one that exists is changed without a bracket",
             "properties set WIDTH int 5", TCL_OK,
             "Successfully updated property \"WIDTH\" on design \"uart %1\"",
             "design.propertyByName(WIDTH)\nproperty.setValue(int, 5)"},
            {"properties-set-3 read only has no effect on a new one", "properties set p int 5 TRUE",
             TCL_OK, "Successfully set property \"p\" on design \"uart %1\"", added},
            {"properties-set-4 nor on one that exists", "properties set WIDTH int 5 false", TCL_OK,
             "Successfully updated property \"WIDTH\" on design \"uart %1\"",
             "design.propertyByName(WIDTH)\nproperty.setValue(int, 5)"},
            {"properties-set-5 a word that is neither", "properties set p int 5 yes", TCL_ERROR,
             badWord, ""},
            {"properties-set-6 an empty word", "properties set p int 5 {}", TCL_ERROR, badWord, ""},
            {"properties-set-7 the word is looked at before the value",
             "properties set p int five yes", TCL_ERROR, badWord, ""},
            {"properties-set-8 with more words it is not looked at", "properties set p int 5 yes x",
             TCL_OK, "Successfully set property \"p\" on design \"uart %1\"", added},
            {"properties-set-9 no value", "properties set {p %2} int", TCL_ERROR,
             tooFew + "p %2\" on active design \"uart %1\"", ""},
            {"properties-set-10 no type", "properties set p", TCL_ERROR,
             tooFew + "p\" on active design \"uart %1\"", ""},
            {"properties-set-11 no name", "properties set", TCL_ERROR,
             tooFew + "\" on active design \"uart %1\"", ""},
            {"properties-set-12 a value that is not of its type", "properties set {p %2} int five",
             TCL_ERROR,
             "Failed to set property \"p %2\" on design \"uart %1\". Property type and value "
             "combination is invalid",
             ""},
            {"properties-set-13 an unknown type", "properties set p colour red", TCL_ERROR,
             "Failed to set property \"p\" on design \"uart %1\". Property type and value "
             "combination is invalid",
             ""},
            {"properties-set-14 refused", "properties set %3 string {}", TCL_ERROR,
             "Failed to set property \"%3\" on design \"uart %1\": The design refuses it",
             "design.propertyByName(%3)\ninitExec\n"
             "design.addProperty(%3, , QString, , false)\nfinalizeExec",
             failing({u"design.addProperty(%3, , QString, , false)"_s})},
        });
    }
    void set() { runRow(); }

    void aRefusedValueIsAnsweredAsAnUpdate()
    {
        renewHost();
        host().journal.fail(u"property.setValue(int, 5)"_s);
        const Answer answer = eval("properties set WIDTH int 5");
        QCOMPARE(answer.text, u"Successfully updated property \"WIDTH\" on design \"uart %1\""_s);
        QCOMPARE(answer.code, TCL_OK);
        QCOMPARE(host().designs.open.first()->allProperties.first()->data.value(), QVariant(8));
    }
};

TEST_CLASS(tst_properties)
#include "tst_properties.moc"
