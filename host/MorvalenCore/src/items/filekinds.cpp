#include "items/filekinds.h"

#include <QHash>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

struct Kind
{
    QLatin1StringView category;
    // Separated by blanks.
    QLatin1StringView suffixes;
};

constexpr Kind kinds[] = {
    {"HDL::Verilog"_L1, "v vh vlg verilog"_L1},
    {"HDL::SystemVerilog"_L1, "sv svh svi"_L1},
    {"HDL::VHDL"_L1, "vhd vhdl vho vht"_L1},
    {"Constraints"_L1, "xdc sdc ucf pcf lpf cst qsf ccf"_L1},
    {"Scripts::Tcl"_L1, "tcl tk do"_L1},
    {"Scripts::Python"_L1, "py"_L1},
    {"Scripts::Perl"_L1, "pl pm"_L1},
    {"Scripts::Shell"_L1, "sh bash csh"_L1},
    {"Scripts::Make"_L1, "mk mak make"_L1},
    {"Software::C"_L1, "c h"_L1},
    {"Software::C++"_L1, "cpp cc cxx c++ hpp hh hxx h++"_L1},
    {"Software::Assembler"_L1, "s asm"_L1},
    {"Documentation"_L1, "md txt rst adoc pdf html htm tex doc docx odt"_L1},
};

QHash<QString, QString> categoriesBySuffix()
{
    QHash<QString, QString> categories;
    for (const Kind &kind : kinds) {
        for (const QString &suffix : QString(kind.suffixes).split(u' '))
            categories.insert(suffix, kind.category);
    }
    return categories;
}

} // namespace

QString categoryForFileName(const QString &fileName)
{
    static const QHash<QString, QString> categories = categoriesBySuffix();
    const qsizetype dot = fileName.lastIndexOf(u'.');
    if (dot < 0)
        return fileName.compare("makefile"_L1, Qt::CaseInsensitive) == 0 ? u"Scripts::Make"_s
                                                                         : u"Other"_s;
    return categories.value(fileName.mid(dot + 1).toLower(), u"Other"_s);
}

} // namespace MorvalenCore
