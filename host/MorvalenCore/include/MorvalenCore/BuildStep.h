#pragma once

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

    bool operator==(const BuildStep &) const = default;
};

} // namespace MorvalenCore
