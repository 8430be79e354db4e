#include "tests/ensemble/EnsembleTest.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;

// Build configurations, their steps and their macros, as scripts make and change them.
class tst_EnsembleConfigurations : public EnsembleTest
{
    Q_OBJECT

    void prepare(FakeHost &host) override
    {
        FakeDesign *design = host.activeDesign();
        FakeBuildConfiguration *sim = design->configuration(u"my sim"_s);
        sim->targetPath = u"out"_s;
        sim->data.macros = {{u"TOP"_s, u"a b"_s}, {u"N"_s, u"$(TOP) \"x\""_s}};
        sim->data.steps = {{.name = u"compile"_s,
                            .command = u"cc $(INPUTS)"_s,
                            .inputs = {u"a b.c"_s, u"node:src"_s},
                            .outputs = {u"x.o"_s}},
                           {.name = u"link"_s, .command = u"ld"_s, .inputs = {}, .outputs = {}}};
        sim->fileSteps = {
            {.name = u"f.v"_s, .command = u"tool f.v"_s, .inputs = {u"/w/f.v"_s}, .outputs = {}}};
        design->configuration(u"empty"_s);
        design->configurationActive = sim;
    }

    static void readOnly(FakeHost &host) { host.designs.open.last()->readOnly = true; }
    static void refuses(FakeHost &host)
    {
        host.journal.fail(u"configuration.setDescription()"_s);
        host.journal.fail(u"design.addBuildConfiguration(new)"_s);
        host.journal.fail(u"design.removeBuildConfiguration(empty)"_s);
    }
    static const inline QByteArray changed =
        "initExec\nconfiguration.setDescription()\nfinalizeExec";

private Q_SLOTS:
    void configurations_data()
    {
        addRows({
            good("list-1", "morvalen configuration list", "{my sim} empty"),
            good("add-1", "morvalen configuration add new", "new"),
            good("add-2 with a target",
                 "morvalen configuration add new -target {my out}; morvalen configuration list",
                 "{my sim} empty new"),
            bad("add-3 one that is there", "morvalen configuration add empty",
                "The design \"uart\" has a build configuration \"empty\" already",
                "already_exists"),
            bad("add-4 refused", "morvalen configuration add new", "The design refuses it",
                "invalid_argument", {}, refuses),
            bad("add-5 a read-only design", "morvalen configuration add new",
                "The design \"uart\" is read-only", "read_only", "", readOnly),
            good("remove-1", "morvalen configuration remove {my sim}; morvalen configuration list",
                 "empty"),
            bad("remove-2 one that is not there", "morvalen configuration remove x",
                "The design \"uart\" has no build configuration \"x\"", "not_found"),
            bad("remove-3 refused", "morvalen configuration remove empty", "The design refuses it",
                "invalid_argument", {}, refuses),
            good("rename-1",
                 "morvalen configuration rename {my sim} yours; "
                 "morvalen configuration list",
                 "yours empty"),
            bad("rename-2 refused", "morvalen configuration rename empty {my sim}",
                "The configuration refuses it", "invalid_argument", {}, refuses),
            good("set-1 a target", "morvalen configuration set {my sim} -target out2", "", changed),
            bad("set-2 of one that is not there", "morvalen configuration set x -target y",
                "The design \"uart\" has no build configuration \"x\"", "not_found"),
            good("set-3 all steps",
                 "morvalen configuration set empty -steps "
                 "{{name a command {run \\$x} inputs {{b c} d}} {name e pool p outputs f}}; "
                 "dict get [morvalen configuration get empty] steps",
                 "{name a command {run \\$x} inputs {{b c} d} outputs {} pool {} of_file false} "
                 "{name e command {} inputs {} outputs f pool p of_file false}"),
            good("set-4 the steps of another, without those of its files",
                 "morvalen configuration set empty "
                 "-steps [dict get [morvalen configuration get {my sim}] steps]; "
                 "morvalen step list empty",
                 "compile link"),
            bad("set-5 a key that steps do not have",
                "morvalen configuration set empty -steps {{name a comand x}}",
                "a step of -steps has no \"comand\": name, command, inputs, outputs, pool or "
                "of_file",
                "invalid_argument"),
            bad("set-6 a step that is no dictionary",
                "morvalen configuration set empty -steps {{name a command}}",
                "the value of -steps is no dictionary: a value is missing behind \"command\"",
                "invalid_argument"),
            bad("set-7 no list", "morvalen configuration set empty -steps \\{",
                "the value of -steps is no list: unmatched open brace in list", "invalid_argument"),
            bad("set-8 inputs that are no list",
                "morvalen configuration set empty -steps [list [list name a inputs \\{]]",
                "the value of -steps is no list of steps: unmatched open brace in list",
                "invalid_argument"),
            bad("set-9 macros that are no dictionary",
                "morvalen configuration set empty -macros {A}",
                "the value of -macros is no dictionary: a value is missing behind \"A\"",
                "invalid_argument"),
            good("get-1 a dictionary", "morvalen configuration get {my sim}",
                 "name {my sim} target out active true state Idle macros {TOP {a b} N {$(TOP) "
                 "\"x\"}} steps {{name compile command {cc $(INPUTS)} inputs {{a b.c} node:src} "
                 "outputs x.o pool {} of_file false} {name link command ld inputs {} outputs {} "
                 "pool {} of_file "
                 "false} {name f.v command {tool f.v} inputs /w/f.v outputs {} pool {} of_file "
                 "true}}"),
            good("get-2 an empty one", "morvalen configuration get empty",
                 "name empty target {} active false state Idle macros {} steps {}"),
        });
    }
    void configurations() { runRow(); }

    void steps_data()
    {
        const QByteArray names = "; morvalen step list {my sim}";
        addRows({
            good("list-1", "morvalen step list {my sim}", "compile link f.v"),
            good("list-2 none", "morvalen step list empty", ""),
            good("get-1", "morvalen step get {my sim} compile",
                 "name compile command {cc $(INPUTS)} inputs {{a b.c} node:src} outputs x.o "
                 "pool {} of_file false"),
            good("get-2 of a file", "morvalen step get {my sim} f.v",
                 "name f.v command {tool f.v} inputs /w/f.v outputs {} pool {} of_file true"),
            bad("get-3 none", "morvalen step get {my sim} x",
                "The build configuration \"my sim\" has no step \"x\"", "not_found"),
            good("add-1 at the end",
                 "morvalen step add {my sim} {a step} -command {run \"it\"}" + names,
                 "compile link {a step} f.v", changed),
            good("add-2 in front of another",
                 "morvalen step add {my sim} new -command c -before link" + names,
                 "compile new link f.v"),
            good("add-3 with all there is",
                 "morvalen step add empty new -command {a $b [c]} -inputs {{x y} \\$z} "
                 "-outputs [list \"1\\n2\" {}]; morvalen step get empty new",
                 "name new command {a $b [c]} inputs {{x y} {$z}} outputs {{1\n2} {}} pool {} "
                 "of_file "
                 "false"),
            bad("add-4 one that is there", "morvalen step add {my sim} link -command c",
                "The build configuration \"my sim\" has a step \"link\" already", "already_exists"),
            bad("add-5 in front of none", "morvalen step add {my sim} new -command c -before x",
                "The build configuration \"my sim\" has no step \"x\" of its own", "not_found"),
            bad("add-6 without a name", "morvalen step add {my sim} {} -command c",
                "The name of a step cannot be empty", "invalid_argument"),
            bad("add-7 refused", "morvalen step add {my sim} new -command c",
                "The configuration refuses it", "invalid_argument", {}, refuses),
            good("set-1 only what is given",
                 "morvalen step set {my sim} compile -outputs {a b}; "
                 "morvalen step get {my sim} compile",
                 "name compile command {cc $(INPUTS)} inputs {{a b.c} node:src} outputs {a b} "
                 "pool {} of_file false"),
            good("set-2 another name keeps the place",
                 "morvalen step set {my sim} compile -name cc" + names, "cc link f.v"),
            good("set-3 another place", "morvalen step set {my sim} link -before compile" + names,
                 "link compile f.v"),
            bad("set-4 the name of another", "morvalen step set {my sim} compile -name link",
                "The build configuration \"my sim\" has a step \"link\" already", "already_exists"),
            bad("set-5 in front of itself", "morvalen step set {my sim} link -before link",
                "The build configuration \"my sim\" has no step \"link\" of its own", "not_found"),
            bad("set-6 one of a file", "morvalen step set {my sim} f.v -command c",
                "The build configuration \"my sim\" has no step \"f.v\" of its own", "not_found"),
            good("remove-1", "morvalen step remove {my sim} compile" + names, "link f.v"),
            bad("remove-2 one of a file", "morvalen step remove {my sim} f.v",
                "The build configuration \"my sim\" has no step \"f.v\" of its own", "not_found"),
            bad("remove-3 of a configuration that is not there", "morvalen step remove x y",
                "The design \"uart\" has no build configuration \"x\"", "not_found"),
        });
    }
    void steps() { runRow(); }

    void macros_data()
    {
        addRows({
            good("list-1", "morvalen macro list {my sim}", "TOP N"),
            good("list-2 none", "morvalen macro list empty", ""),
            good("get-1", "morvalen macro get {my sim} TOP", "a b"),
            good("get-2 as it was set", "morvalen macro get {my sim} N", "$(TOP) \"x\""),
            bad("get-3 none", "morvalen macro get empty TOP",
                "The build configuration \"empty\" has no macro \"TOP\"", "not_found"),
            good("set-1 one that is there",
                 "morvalen macro set {my sim} TOP -x; morvalen macro get {my sim} TOP", "-x"),
            good("set-2 a new one",
                 "morvalen macro set {my sim} new {}; morvalen macro list {my sim}", "TOP N new"),
            bad("set-3 without a name", "morvalen macro set empty {} x",
                "The name of a macro cannot be empty", "invalid_argument"),
            bad("set-4 refused", "morvalen macro set empty M x", "The configuration refuses it",
                "invalid_argument", {}, refuses),
            good("unset-1", "morvalen macro unset {my sim} TOP; morvalen macro list {my sim}", "N"),
            bad("unset-2 none", "morvalen macro unset empty TOP",
                "The build configuration \"empty\" has no macro \"TOP\"", "not_found"),
            bad("unset-3 a read-only design", "morvalen macro unset {my sim} TOP",
                "The design \"uart\" is read-only", "read_only", "", readOnly),
        });
    }
    void macros() { runRow(); }
};

TEST_CLASS(tst_EnsembleConfigurations)
#include "tst_EnsembleConfigurations.moc"
