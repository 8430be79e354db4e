#include "app/editor/Syntax.h"

#include "commands/commandmanuals.h"

#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {

QSet<QString> words(const char *text)
{
    const QStringList list = QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
    return {list.begin(), list.end()};
}

const char tclWords[] =
    "after append apply array binary break catch cd chan clock close concat continue coroutine "
    "dict else elseif encoding eof error eval exec exit expr fblocked fconfigure fcopy file "
    "fileevent flush for foreach format gets glob global if incr info interp join lappend lassign "
    "lindex linsert list llength lmap load lrange lrepeat lreplace lreverse lsearch lset lsort "
    "namespace oo::class open package pid proc puts pwd read regexp regsub rename return scan "
    "seek set socket source split string subst switch tailcall tell then throw time trace try "
    "unset update uplevel upvar variable vwait while yield "
    "help history set_prompt save_script";

QSet<QString> tclKeywords()
{
    QSet<QString> keywords = words(tclWords);
    for (const commands::CommandManual &manual : commands::commandManuals())
        keywords.insert(manual.word);
    return keywords;
}

const char verilogWords[] =
    "accept_on alias always always_comb always_ff always_latch and assert assign assume automatic "
    "before begin bind bins binsof bit break buf bufif0 bufif1 byte case casex casez cell chandle "
    "checker class clocking cmos config const constraint context continue cover covergroup "
    "coverpoint cross deassign default defparam design disable dist do edge else end endcase "
    "endchecker endclass endclocking endconfig endfunction endgenerate endgroup endinterface "
    "endmodule endpackage endprimitive endprogram endproperty endspecify endsequence endtable "
    "endtask enum event eventually expect export extends extern final first_match for force "
    "foreach forever fork forkjoin function generate genvar global highz0 highz1 if iff ifnone "
    "ignore_bins illegal_bins implements implies import incdir include initial inout input inside "
    "instance int integer interconnect interface intersect join join_any join_none large let "
    "liblist library local localparam logic longint macromodule matches medium modport module "
    "nand negedge nettype new nexttime nmos nor noshowcancelled not notif0 notif1 null or output "
    "package packed parameter pmos posedge primitive priority program property protected pull0 "
    "pull1 pulldown pullup pulsestyle_ondetect pulsestyle_onevent pure rand randc randcase "
    "randsequence rcmos real realtime ref reg reject_on release repeat restrict return rnmos "
    "rpmos rtran rtranif0 rtranif1 s_always s_eventually s_nexttime s_until s_until_with scalared "
    "sequence shortint shortreal showcancelled signed small soft solve specify specparam static "
    "string strong strong0 strong1 struct super supply0 supply1 sync_accept_on sync_reject_on "
    "table tagged task this throughout time timeprecision timeunit tran tranif0 tranif1 tri tri0 "
    "tri1 triand trior trireg type typedef union unique unique0 unsigned until until_with untyped "
    "use uwire var vectored virtual void wait wait_order wand weak weak0 weak1 while wildcard "
    "wire with within wor xnor xor";

const char vhdlWords[] =
    "abs access after alias all and architecture array assert attribute begin block body buffer "
    "bus case component configuration constant context default disconnect downto else elsif end "
    "entity exit fairness file for force function generate generic group guarded if impure in "
    "inertial inout is label library linkage literal loop map mod nand new next nor not null of "
    "on open or others out package parameter port postponed procedure process property protected "
    "pure range record register reject release rem report restrict return rol ror select sequence "
    "severity shared signal sla sll sra srl strong subtype then to transport type unaffected "
    "units until use variable vmode vprop vunit wait when while with xnor xor";

const char cWords[] =
    "alignas alignof and asm auto bool break case catch char char16_t char32_t char8_t class "
    "co_await co_return co_yield concept const const_cast consteval constexpr constinit continue "
    "decltype default delete do double dynamic_cast else enum explicit export extern false final "
    "float for friend goto if inline int long mutable namespace new noexcept not nullptr operator "
    "or override private protected public register reinterpret_cast requires restrict return "
    "short signed sizeof static static_assert static_cast struct switch template this "
    "thread_local throw true try typedef typeid typename union unsigned using virtual void "
    "volatile wchar_t while xor int8_t int16_t int32_t int64_t uint8_t uint16_t uint32_t uint64_t "
    "size_t ssize_t intptr_t uintptr_t ptrdiff_t NULL";

Syntax tcl()
{
    return {
        .name = u"Tcl"_s,
        .fileNames = {u"*.tcl"_s, u"*.tm"_s, u"*.sdc"_s, u"*.xdc"_s, u"*.do"_s},
        .spans =
            {{.opening = u"#"_s, .style = Syntax::Comment, .escape = u'\\', .behind = u"\n;{"_s},
             {.opening = u"\""_s,
              .closing = u"\""_s,
              .style = Syntax::Text,
              .escape = u'\\',
              .overLines = true,
              .behind = u"\n \t[("_s,
              .hasPrefixes = true},
             {.opening = u"${"_s, .closing = u"}"_s, .style = Syntax::Variable},
             {.opening = u"${"_s, .closing = u"}"_s, .style = Syntax::Variable, .within = 1}},
        .prefixes = {{u'$', Syntax::Variable}},
        .keywords = tclKeywords(),
        .wordCharacters = u":"_s,
        .numberCharacters = u"."_s};
}

Syntax verilog()
{
    return {
        .name = u"Verilog"_s,
        .fileNames = {u"*.v"_s, u"*.vh"_s, u"*.sv"_s, u"*.svh"_s, u"*.svi"_s, u"*.vlg"_s},
        .spans =
            {{.opening = u"//"_s, .style = Syntax::Comment},
             {.opening = u"/*"_s, .closing = u"*/"_s, .style = Syntax::Comment, .overLines = true},
             {.opening = u"\""_s, .closing = u"\""_s, .style = Syntax::Text, .escape = u'\\'}},
        .prefixes = {{u'`', Syntax::Directive}, {u'$', Syntax::Variable}},
        .keywords = words(verilogWords),
        .wordCharacters = u"$"_s,
        .numberCharacters = u"'?."_s};
}

Syntax vhdl()
{
    return {.name = u"VHDL"_s,
            .fileNames = {u"*.vhd"_s, u"*.vhdl"_s, u"*.vho"_s, u"*.vht"_s},
            .spans = {{.opening = u"--"_s, .style = Syntax::Comment},
                      {.opening = u"/*"_s,
                       .closing = u"*/"_s,
                       .style = Syntax::Comment,
                       .overLines = true},
                      {.opening = u"\""_s, .closing = u"\""_s, .style = Syntax::Text}},
            .keywords = words(vhdlWords),
            .keywordsHaveCase = false,
            .numberCharacters = u".#"_s};
}

Syntax c()
{
    return {
        .name = u"C/C++"_s,
        .fileNames = {u"*.c"_s, u"*.h"_s, u"*.cc"_s, u"*.cpp"_s, u"*.cxx"_s, u"*.hh"_s, u"*.hpp"_s,
                      u"*.hxx"_s, u"*.inl"_s},
        .spans =
            {{.opening = u"//"_s, .style = Syntax::Comment, .escape = u'\\'},
             {.opening = u"/*"_s, .closing = u"*/"_s, .style = Syntax::Comment, .overLines = true},
             {.opening = u"\""_s, .closing = u"\""_s, .style = Syntax::Text, .escape = u'\\'},
             {.opening = u"'"_s, .closing = u"'"_s, .style = Syntax::Text, .escape = u'\\'},
             {.opening = u"#"_s, .style = Syntax::Directive, .escape = u'\\', .behind = u"\n"_s},
             {.opening = u"/*"_s,
              .closing = u"*/"_s,
              .style = Syntax::Comment,
              .overLines = true,
              .within = 4},
             {.opening = u"//"_s, .style = Syntax::Comment, .within = 4},
             {.opening = u"\""_s,
              .closing = u"\""_s,
              .style = Syntax::Text,
              .escape = u'\\',
              .within = 4}},
        .keywords = words(cWords),
        .numberCharacters = u".'"_s};
}

Syntax xml()
{
    return {
        .name = u"XML"_s,
        .fileNames = {u"*.xml"_s, u"*.xsd"_s, u"*.xsl"_s, u"*.xslt"_s, u"*.svg"_s, u"*.ui"_s,
                      u"*.qrc"_s},
        .spans = {{.opening = u"<!--"_s,
                   .closing = u"-->"_s,
                   .style = Syntax::Comment,
                   .overLines = true},
                  {.opening = u"<![CDATA["_s,
                   .closing = u"]]>"_s,
                   .style = Syntax::Text,
                   .overLines = true},
                  {.opening = u"<?"_s,
                   .closing = u"?>"_s,
                   .style = Syntax::Directive,
                   .overLines = true},
                  {.opening = u"<"_s, .closing = u">"_s, .style = Syntax::Tag, .overLines = true},
                  {.opening = u"\""_s,
                   .closing = u"\""_s,
                   .style = Syntax::Text,
                   .overLines = true,
                   .within = 3},
                  {.opening = u"'"_s,
                   .closing = u"'"_s,
                   .style = Syntax::Text,
                   .overLines = true,
                   .within = 3},
                  {.opening = u"&"_s, .closing = u";"_s, .style = Syntax::Variable}},
        .numberCharacters = u".-:"_s};
}

} // namespace

const QList<Syntax> &Syntax::all()
{
    static const QList<Syntax> syntaxes {tcl(), verilog(), vhdl(), c(), xml()};
    return syntaxes;
}

QString Syntax::commentSign() const
{
    for (const Span &span : spans) {
        if (span.style == Comment && span.closing.isEmpty() && span.within < 0)
            return span.opening;
    }
    return {};
}

const Syntax *Syntax::of(const QString &fileName)
{
    const QString name = QFileInfo(fileName).fileName();
    for (const Syntax &syntax : all()) {
        for (const QString &pattern : syntax.fileNames) {
            if (name.endsWith(QStringView(pattern).sliced(1), Qt::CaseInsensitive))
                return &syntax;
        }
    }
    return nullptr;
}
