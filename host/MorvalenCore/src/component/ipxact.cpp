#include "component/ipxact.h"

#include <QHash>
#include <QList>

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore::Ipxact {

namespace {

struct GenerationRow
{
    Generation generation;
    QByteArrayView uri;
    QLatin1StringView name;
};

constexpr std::array<GenerationRow, 5> generations {{
    {Generation::Spirit14, "http://www.spiritconsortium.org/XMLSchema/SPIRIT/1.4", "1.4"_L1},
    {Generation::Spirit15, "http://www.spiritconsortium.org/XMLSchema/SPIRIT/1.5", "1.5"_L1},
    {Generation::Ieee2009, "http://www.spiritconsortium.org/XMLSchema/SPIRIT/1685-2009",
     "1685-2009"_L1},
    {Generation::Ieee2014, "http://www.accellera.org/XMLSchema/IPXACT/1685-2014", "1685-2014"_L1},
    {Generation::Ieee2022, "http://www.accellera.org/XMLSchema/IPXACT/1685-2022", "1685-2022"_L1},
}};

// The children of an element in their order, up to the next row of the same element.
struct OrderRow
{
    QByteArrayView parent;
    Generation since;
    const char *children;
};

constexpr std::array orders {
    OrderRow {"component", Generation::Spirit14,
              "vendor library name version busInterfaces channels remapStates addressSpaces "
              "memoryMaps model componentGenerators choices fileSets whiteboxElements cpus "
              "otherClockDrivers description parameters vendorExtensions"},
    OrderRow {"component", Generation::Ieee2014,
              "vendor library name version busInterfaces indirectInterfaces channels remapStates "
              "addressSpaces memoryMaps model componentGenerators choices fileSets "
              "whiteboxElements cpus otherClockDrivers resetTypes description parameters "
              "assertions vendorExtensions"},
    OrderRow {"component", Generation::Ieee2022,
              "vendor library name version displayName shortDescription description "
              "typeDefinitions powerDomains busInterfaces indirectInterfaces channels modes "
              "addressSpaces memoryMaps model componentGenerators choices fileSets "
              "clearboxElements cpus otherClockDrivers resetTypes parameters assertions "
              "vendorExtensions"},
    OrderRow {"fileSet", Generation::Spirit14,
              "name displayName description group file defaultFileBuilder dependency function "
              "vendorExtensions"},
    OrderRow {"fileSet", Generation::Ieee2022,
              "name displayName shortDescription description group file defaultFileBuilder "
              "dependency function vendorExtensions"},
    OrderRow {"file", Generation::Spirit14,
              "name fileType userFileType isIncludeFile logicalName exportedName buildCommand "
              "dependency define imageType description vendorExtensions"},
    OrderRow {"file", Generation::Ieee2014,
              "name isPresent fileType isStructural isIncludeFile logicalName exportedName "
              "buildCommand dependency define imageType description vendorExtensions"},
    OrderRow {"file", Generation::Ieee2022,
              "name fileType isStructural isIncludeFile logicalName exportedName buildCommand "
              "dependency define imageType description vendorExtensions"},
    OrderRow {"parameter", Generation::Spirit14,
              "name displayName description value vendorExtensions"},
    OrderRow {"parameter", Generation::Ieee2014,
              "name displayName description vectors arrays value vendorExtensions"},
    OrderRow {"parameter", Generation::Ieee2022,
              "name displayName shortDescription description vectors arrays value "
              "vendorExtensions"},
};

const char *orderOf(Generation generation, QByteArrayView parent)
{
    const char *children = nullptr;
    for (const OrderRow &row : orders) {
        if (row.parent == parent && row.since <= generation)
            children = row.children;
    }
    return children;
}

struct FileTypeRow
{
    // Between blanks.
    QLatin1StringView suffixes;
    QLatin1StringView type;
    Generation since = Generation::Spirit14;
};

// Of two rows that hold a suffix, the last one counts that the generation has.
constexpr std::array fileTypes {
    FileTypeRow {" v vh vlg verilog "_L1, "verilogSource"_L1},
    FileTypeRow {" sv svh svp "_L1, "systemVerilogSource"_L1},
    FileTypeRow {" vhd vhdl vho "_L1, "vhdlSource"_L1},
    FileTypeRow {" c h "_L1, "cSource"_L1},
    FileTypeRow {" cpp cc cxx c++ hpp hh hxx h++ "_L1, "cppSource"_L1},
    FileTypeRow {" s asm "_L1, "asmSource"_L1},
    FileTypeRow {" o obj "_L1, "swObject"_L1},
    FileTypeRow {" a lib so "_L1, "swObjectLibrary"_L1},
    FileTypeRow {" pl pm "_L1, "perlSource"_L1},
    FileTypeRow {" tcl "_L1, "tclSource"_L1},
    FileTypeRow {" psl "_L1, "pslSource"_L1},
    FileTypeRow {" vr vrh "_L1, "veraSource"_L1},
    FileTypeRow {" e "_L1, "eSource"_L1},
    FileTypeRow {" sdc "_L1, "SDC"_L1, Generation::Ieee2009},
    FileTypeRow {" vams va "_L1, "verilogAmsSource"_L1, Generation::Ieee2014},
    FileTypeRow {" vhdams "_L1, "vhdlAmsSource"_L1, Generation::Ieee2014},
    FileTypeRow {" lib "_L1, "libertySource"_L1, Generation::Ieee2014},
    FileTypeRow {" sp spi cir ckt "_L1, "spiceSource"_L1, Generation::Ieee2022},
    FileTypeRow {" rdl "_L1, "systemRDL"_L1, Generation::Ieee2022},
};

} // namespace

std::optional<Generation> generationOf(QByteArrayView uri)
{
    for (const GenerationRow &row : generations) {
        if (row.uri == uri)
            return row.generation;
    }
    return {};
}

QByteArrayView namespaceOf(Generation generation)
{
    return generations[static_cast<size_t>(generation)].uri;
}

QString nameOf(Generation generation) { return generations[static_cast<size_t>(generation)].name; }

int childRank(Generation generation, QByteArrayView parent, QByteArrayView child)
{
    const char *const order = orderOf(generation, parent);
    if (order == nullptr)
        return -1;
    QByteArrayView rest(order);
    for (int rank = 0; !rest.isEmpty(); ++rank) {
        const qsizetype blank = rest.indexOf(' ');
        const qsizetype length = blank < 0 ? rest.size() : blank;
        if (rest.first(length) == child)
            return rank;
        rest = rest.sliced(blank < 0 ? length : length + 1);
    }
    return -1;
}

QString fileTypeOf(Generation generation, const QString &path)
{
    const QString fileName =
        path.sliced(1 + std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\')));
    const qsizetype dot = fileName.lastIndexOf(u'.');
    QString type = u"unknown"_s;
    if (dot < 0)
        return type;
    const QString suffix = u' ' + fileName.sliced(dot + 1).toLower() + u' ';
    for (const FileTypeRow &row : fileTypes) {
        if (row.since <= generation && row.suffixes.contains(suffix))
            type = row.type;
    }
    return type;
}

} // namespace MorvalenCore::Ipxact
