#include "tests/ensemble/EnsembleTest.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;

// How calls are read, whatever they do: words, arguments, options, and what is said of bad ones.
class tst_EnsembleWords : public EnsembleTest
{
    Q_OBJECT

    void prepare(FakeHost &host) override
    {
        FakeDesign *design = host.activeDesign();
        design->nodes = QStringList {u"rtl"_s, u"-design"_s};
        design->file(u"/w/a.v"_s, u"rtl"_s);
        design->property(u"WIDTH"_s, 8);
        design->property(u"-design"_s, u"odd"_s);
        design->configuration(u"sim"_s);
    }

private Q_SLOTS:
    void rows_data()
    {
        addRows({
            bad("none-1 no subcommand", "morvalen",
                "wrong # args: should be \"morvalen subcommand ?arg ...?\": subcommand must be "
                "build, configuration, designs, file, files, folder, folders, journal, macro, "
                "nodes, "
                "properties, property, reload, restore, session, step, templates or version",
                "usage"),
            bad("none-2 no subcommand of a group", "morvalen macro",
                "wrong # args: should be \"morvalen macro subcommand ?arg ...?\": subcommand must "
                "be list, get, set or unset",
                "usage"),
            bad("unknown-1 a word", "morvalen fil",
                "unknown subcommand \"morvalen fil\": must be build, configuration, designs, "
                "file, files, folder, folders, journal, macro, nodes, properties, property, "
                "reload, restore, session, "
                "step, "
                "templates or version",
                "usage"),
            bad("unknown-2 words are exact", "morvalen Files",
                "unknown subcommand \"morvalen Files\": must be build, configuration, designs, "
                "file, files, folder, folders, journal, macro, nodes, properties, property, "
                "reload, restore, session, "
                "step, "
                "templates or version",
                "usage"),
            bad("unknown-3 a word of a group", "morvalen configuration drop sim",
                "unknown subcommand \"morvalen configuration drop\": must be list, add, remove, "
                "rename, set or get",
                "usage"),
            bad("unknown-4 an option", "morvalen files -nodes rtl",
                "unknown option \"-nodes\": must be -node, -category or -design", "usage"),
            bad("unknown-5 an option where there is one", "morvalen nodes -node x",
                "unknown option \"-node\": must be -design", "usage"),
            bad("count-1 too many", "morvalen designs x",
                "wrong # args: should be \"morvalen designs\"", "usage"),
            bad("count-2 too few", "morvalen macro get sim",
                "wrong # args: should be \"morvalen macro get CONFIGURATION NAME ?-design ID?\"",
                "usage"),
            bad("count-3 one too many behind options", "morvalen files -node rtl x",
                "wrong # args: should be \"morvalen files ?-node NODE? ?-category CATEGORY? "
                "?-design ID?\"",
                "usage"),
            bad("count-4 without an option that is required", "morvalen step add sim x",
                "wrong # args: should be \"morvalen step add CONFIGURATION NAME -command COMMAND "
                "?-inputs LIST? ?-outputs LIST? ?-pool POOL? ?-before NAME? "
                "?-design ID?\"",
                "usage"),
            bad("value-1 an option without its value", "morvalen files -node",
                "option \"-node\" needs NODE behind it", "usage"),
            bad("value-2 one that is no list", "morvalen step add sim x -command c -inputs \\{",
                "the value of -inputs is no list: unmatched open brace in list",
                "invalid_argument"),
            good("order-1 options in any order, the last one counts",
                 "morvalen files -category {} -node x -node rtl", "/w/a.v"),
            good("dash-1 a required argument is taken as it is", "morvalen property -design",
                 "odd"),
            good("dash-2 an odd number of words says that a value is there",
                 "morvalen property WIDTH -5; morvalen property WIDTH", "-5"),
            good("dash-3 even one that is an option's name",
                 "morvalen property new -design; morvalen property new", "-design"),
            good("dash-4 behind two dashes nothing is an option",
                 "morvalen property new -- -type; morvalen property new", "-type"),
            good("dash-5 options behind a value",
                 "morvalen property new -5 -type int -design acme.global.uart.1.0; "
                 "morvalen property new -design acme.global.uart.1.0",
                 "-5"),
            bad("dash-6 a design's id that looks like an option", "morvalen build -x",
                "unknown option \"-x\": must be -configuration, -all, -jobs, -keep-going, -spread "
                "or -dry",
                "usage"),
            bad("dash-7 and behind two dashes", "morvalen build -- -x",
                "No design with the id \"-x\" is open", "not_found"),
        });
    }
    void rows() { runRow(); }

    void itIsNotListed()
    {
        const Answer listing = eval("help");
        QVERIFY(!listing.text.contains(u"morvalen"_s));
        QCOMPARE(eval("info commands morvalen").text, u"morvalen"_s);
    }

    // Tcl catches and rethrows it as any error of its own.
    void anErrorIsTcls()
    {
        renewHost();
        QCOMPARE(eval("try {morvalen nodes -design none} trap {MORVALEN not_found} m {set m}").text,
                 u"No design with the id \"none\" is open"_s);
    }

    // Names are any texts: they come back as elements of true lists.
    void namesOfAnyKind_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("name-1 blanks") << u" two  words "_s;
        QTest::newRow("name-2 quotes") << u"a \"quoted\" name"_s;
        QTest::newRow("name-3 lines") << u"one\ntwo\n"_s;
        QTest::newRow("name-4 code") << u"[exit 9] $env(HOME); {"_s;
        QTest::newRow("name-5 backslashes") << u"c:\\new\\"_s;
        QTest::newRow("name-6 nothing") << u""_s;
        QTest::newRow("name-7 a brace") << u"}"_s;
        QTest::newRow("name-8 beyond ASCII") << u"\u20ac \U0001f40d"_s;
        QTest::newRow("name-9 a zero") << QString(u'\0') + u'x';
        QTest::newRow("name-10 a hash") << u"#x"_s;
        QTest::newRow("name-11 a placeholder") << u"%1 %2"_s;
    }
    void namesOfAnyKind()
    {
        QFETCH(const QString, name);
        renewHost();
        FakeDesign *design = host().designs.open.first();
        design->nodes = QStringList {name, u"x"_s};
        design->property(name, name);
        QCOMPARE(eval("llength [morvalen nodes]").text, u"2"_s);
        QCOMPARE(eval("lindex [morvalen nodes] 0").text, name);
        QCOMPARE(call({u"dict"_s, u"get"_s, eval("morvalen properties").text, name}).text, name);
        QCOMPARE(call({u"morvalen"_s, u"macro"_s, u"set"_s, u"sim"_s, u"M"_s, name}).text, u""_s);
        QCOMPARE(eval("morvalen macro get sim M").text, name);
    }
};

TEST_CLASS(tst_EnsembleWords)
#include "tst_EnsembleWords.moc"
