#pragma once

#include <QList>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

namespace MorvalenCore {

// How designs of one kind are laid out.
struct DesignStructure
{
    // The name is also the id.
    QString name;
    // The file sets, in their order; each has a folder of the same name.
    QStringList fileSets;

    // Which file set takes files of some names.
    struct Rule
    {
        QString fileSet;
        QRegularExpression fileNames;
    };
    // Tried in order, so the narrower one stands first.
    QList<Rule> rules;

    // The file set for a path that is relative to the component's folder; empty when the
    // structure has none for it. A file in the folder of a file set belongs to that.
    QString fileSetFor(const QString &path) const;
};

// The structures there are, in the order in which they are offered.
const QList<DesignStructure> &designStructures();

// The one of that name, or null.
const DesignStructure *findDesignStructure(const QString &name);

// A type of design, and the structure for those who do not choose one.
struct DesignType
{
    QString name;
    QString defaultStructure;
};

const QList<DesignType> &designTypeList();
QStringList designTypeNames();

} // namespace MorvalenCore
