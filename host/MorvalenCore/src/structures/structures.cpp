#include "structures/structures.h"

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

// File names that match one of the wildcards of the shell, in any case.
QRegularExpression names(const QStringList &patterns)
{
    QStringList alternatives;
    for (const QString &pattern : patterns)
        alternatives.append(QRegularExpression::wildcardToRegularExpression(pattern));
    return QRegularExpression(alternatives.join(u'|'), QRegularExpression::CaseInsensitiveOption);
}

QRegularExpression documents()
{
    return names({u"*.md"_s, u"*.txt"_s, u"*.rst"_s, u"*.adoc"_s, u"*.pdf"_s, u"*.html"_s,
                  u"*.htm"_s, u"*.tex"_s, u"*.doc"_s, u"*.docx"_s, u"*.odt"_s, u"*.png"_s,
                  u"*.svg"_s});
}

DesignStructure hardware()
{
    return {
        u"Hardware"_s,
        {u"rtl"_s, u"testbench"_s, u"constraints"_s, u"documents"_s},
        {{u"testbench"_s,
          names(
              {u"*_tb.*v*"_s, u"tb_*.*v*"_s, u"tb.*v*"_s, u"*_test.*v*"_s, u"*testbench*.*v*"_s})},
         {u"rtl"_s, names({u"*.v"_s, u"*.vh"_s, u"*.sv"_s, u"*.svh"_s, u"*.vhd"_s, u"*.vhdl"_s})},
         {u"constraints"_s,
          names({u"*.xdc"_s, u"*.sdc"_s, u"*.ucf"_s, u"*.pcf"_s, u"*.lpf"_s, u"*.cst"_s,
                 u"*.qsf"_s})},
         {u"documents"_s, documents()}}};
}

DesignStructure software()
{
    return {
        u"Software"_s,
        {u"sources"_s, u"headers"_s, u"tests"_s, u"documents"_s},
        {{u"tests"_s,
          names({u"test_*.c*"_s, u"tst_*.c*"_s, u"*_test.c*"_s, u"*_tests.c*"_s, u"test_*.py"_s})},
         {u"headers"_s, names({u"*.h"_s, u"*.hh"_s, u"*.hpp"_s, u"*.hxx"_s})},
         {u"sources"_s,
          names({u"*.c"_s, u"*.cc"_s, u"*.cpp"_s, u"*.cxx"_s, u"*.s"_s, u"*.asm"_s, u"*.py"_s})},
         {u"documents"_s, documents()}}};
}

} // namespace

QString DesignStructure::fileSetFor(const QString &path) const
{
    const QString top = path.section(u'/', 0, 0);
    if (path.contains(u'/') && fileSets.contains(top))
        return top;
    const QString fileName = path.section(u'/', -1);
    for (const Rule &rule : rules) {
        if (rule.fileNames.match(fileName).hasMatch())
            return rule.fileSet;
    }
    return {};
}

const QList<DesignStructure> &designStructures()
{
    static const QList<DesignStructure> list {
        {u"Flat"_s, {u"files"_s}, {{u"files"_s, names({u"*"_s})}}}, hardware(), software()};
    return list;
}

const DesignStructure *findDesignStructure(const QString &name)
{
    for (const DesignStructure &structure : designStructures()) {
        if (structure.name == name)
            return &structure;
    }
    return nullptr;
}

const QList<DesignType> &designTypeList()
{
    static const QList<DesignType> list {{u"Custom Design"_s, u"Flat"_s},
                                         {u"Hardware Design"_s, u"Hardware"_s},
                                         {u"Software Design"_s, u"Software"_s}};
    return list;
}

QStringList designTypeNames()
{
    QStringList names;
    for (const DesignType &type : designTypeList())
        names.append(type.name);
    return names;
}

} // namespace MorvalenCore
