#pragma once

#include <MorvalenCore/MorvalenCoreExport.h>

#include <QString>
#include <QStringList>

namespace MorvalenCore {

// One command line with its files. An input "node:NAME" stands for the files of a node.
struct BuildStep
{
    QString name;
    QString command;
    QStringList inputs;
    QStringList outputs;
    // Of which pool it is, by whose depth steps of the pool run at once; may be empty.
    QString pool {};

    bool operator==(const BuildStep &) const = default;
};

} // namespace MorvalenCore
