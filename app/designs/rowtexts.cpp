#include "app/designs/rowtexts.h"

#include "app/builds/runstates.h"

#include <Qtilities/categorytext.h>

#include <QCoreApplication>
#include <QDir>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::LinkedItemState;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::QtilitiesProperty;
using Qtilities::CoreGui::AbstractTreeItem;

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(DesignTree)
};

QString nameOfItem(const TreeRow &row)
{
    if (const auto *file = row.file())
        return file->fileName();
    if (const auto *folder = row.folder())
        return folder->fileName();
    if (const auto *property = row.property())
        return property->getName();
    const auto *configuration = row.configuration();
    return configuration ? configuration->configurationName() : QString();
}

QString valueText(const QtilitiesProperty &property) { return property.value().toString(); }

QString countText(RowKind kind, int count)
{
    if (count == 0)
        return {};
    switch (kind) {
    case RowKind::Folders:
        return count == 1 ? Texts::tr("1 folder") : Texts::tr("%n folders", nullptr, count);
    case RowKind::Properties:
        return count == 1 ? Texts::tr("1 property") : Texts::tr("%n properties", nullptr, count);
    case RowKind::Builds:
        return count == 1 ? Texts::tr("1 configuration")
                          : Texts::tr("%n configurations", nullptr, count);
    default:
        return count == 1 ? Texts::tr("1 file") : Texts::tr("%n files", nullptr, count);
    }
}

QString categoryText(const AbstractTreeItem *item)
{
    return item ? textOf(item->category()) : QString();
}

void addDesignStates(QStringList &states, const IDesign &design)
{
    if (design.isModified())
        states.append(Texts::tr("Modified"));
    if (design.isReadOnly())
        states.append(Texts::tr("Read-only"));
    if (design.isBusy())
        states.append(Texts::tr("Busy"));
    if (design.workingFolderPath().isEmpty())
        states.append(Texts::tr("No folder"));
}

void addPropertyStates(QStringList &states, const QtilitiesProperty &property)
{
    if (property.isReadOnly())
        states.append(Texts::tr("Read-only"));
    if (!property.isRemovable())
        states.append(Texts::tr("Not removable"));
}

QString designToolTip(const IDesign &design)
{
    QStringList lines {design.id(u"."_s)};
    if (!design.workingFolderPath().isEmpty())
        lines.append(QDir::toNativeSeparators(design.workingFolderPath()));
    if (!design.author().isEmpty())
        lines.append(Texts::tr("Author: %1").arg(design.author()));
    if (!design.description().isEmpty())
        lines.append(design.description());
    return lines.join(u'\n');
}

} // namespace

QString rowtexts::header(int column)
{
    static constexpr const char *texts[TreeColumnCount] = {
        QT_TRANSLATE_NOOP("DesignTree", "Name"), QT_TRANSLATE_NOOP("DesignTree", "Details"),
        QT_TRANSLATE_NOOP("DesignTree", "State"),
        QT_TRANSLATE_NOOP("DesignTree", "Version Control")};
    return Texts::tr(texts[column]);
}

QString rowtexts::name(const TreeRow &row)
{
    switch (row.kind) {
    case RowKind::Design: {
        const IDesign *design = row.design();
        return design ? design->name() : QString();
    }
    case RowKind::Files:
        return Texts::tr("Files");
    case RowKind::Node:
        return row.name;
    case RowKind::Folders:
        return Texts::tr("Folders");
    case RowKind::Properties:
        return Texts::tr("Properties");
    case RowKind::Builds:
        return Texts::tr("Build Configurations");
    default:
        return nameOfItem(row);
    }
}

QString rowtexts::details(const TreeRow &row, int count)
{
    switch (row.kind) {
    case RowKind::Design: {
        const IDesign *design = row.design();
        return design ? Texts::tr("%1 %2").arg(design->designType(), design->version(u"."_s))
                      : QString();
    }
    case RowKind::Files:
    case RowKind::Node:
    case RowKind::Folders:
    case RowKind::Properties:
    case RowKind::Builds:
        return countText(row.kind, count);
    case RowKind::File:
        return categoryText(row.file());
    case RowKind::Folder:
        return categoryText(row.folder());
    case RowKind::Property:
        return row.property() ? valueText(row.property()->propertyData()) : QString();
    case RowKind::Configuration:
        return row.configuration() ? QDir::toNativeSeparators(row.configuration()->getTargetPath())
                                   : QString();
    case RowKind::Root:
        break;
    }
    return {};
}

QString rowtexts::versionControl(const std::optional<LinkedItemState> &state)
{
    if (!state || state->versionControlSystemName.isEmpty())
        return {};
    return state->versionControlSystemName + u' ' + state->versionControlRevision;
}

QStringList rowtexts::states(const TreeRow &row, const std::optional<LinkedItemState> &state)
{
    QStringList words;
    if (row.active)
        words.append(Texts::tr("Active"));
    if (state && !state->existsOnDisk)
        words.append(Texts::tr("Missing"));
    if (row.kind == RowKind::Design && row.design())
        addDesignStates(words, *row.design());
    if (const auto *file = row.file(); file && file->isGenerated())
        words.append(Texts::tr("Generated (%1)").arg(file->generatedVersion()));
    if (const auto *property = row.property())
        addPropertyStates(words, property->propertyData());
    if (const auto *configuration = row.configuration();
        configuration && configuration->runState() != BuildConfiguration::Idle)
        words.append(runstates::word(configuration->runState()));
    return words;
}

QString rowtexts::toolTip(const TreeRow &row)
{
    if (row.kind == RowKind::Design)
        return row.design() ? designToolTip(*row.design()) : QString();
    if (const auto *file = row.file())
        return QDir::toNativeSeparators(file->actualPath());
    if (const auto *folder = row.folder())
        return QDir::toNativeSeparators(folder->actualPath());
    if (const auto *property = row.property())
        return categoryText(property);
    return {};
}

QString rowtexts::kindWord(const TreeRow &row)
{
    switch (row.kind) {
    case RowKind::File:
        return u"files"_s;
    case RowKind::Folder:
        return u"folders"_s;
    default:
        return u"properties"_s;
    }
}

QString rowtexts::itemWord(const TreeRow &row)
{
    const auto *item = qobject_cast<const Qtilities::CoreGui::TreeFileItem *>(row.item.data());
    return item ? item->actualPath() : row.property()->getName();
}
