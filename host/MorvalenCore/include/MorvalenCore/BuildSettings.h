#pragma once

#include <MorvalenCore/MorvalenCoreExport.h>

#include <Qtilities/Status.h>

#include <QMap>
#include <QString>

#include <optional>

namespace MorvalenCore {

// How builds are run: what the session's settings say in the groups Builds and Pools, and what was
// asked for this run of the program.
struct MORVALENCORE_EXPORT BuildSettings
{
    // How many steps of a build run at once when a launcher stands in front of them and nothing is
    // set: how many processors this machine has says nothing about others.
    static constexpr int jobsWithLauncher = 16;

    // Steps at the same time; nothing leaves it to Ninja.
    std::optional<int> jobs;
    // Whether steps that do not depend on a failed one still run.
    bool keepGoing = false;
    // Words in front of every step's command, and in front of Ninja itself; may be empty.
    QString launcher;
    QString allocation;
    // How many steps of a pool run at once, by the pool's name.
    QMap<QString, int> pools;

    // The settings of now, or which of them cannot be used.
    static Qtilities::Core::Result<BuildSettings> current();

    // What stands in place of the session's settings as long as this program runs.
    struct Asked
    {
        std::optional<int> jobs;
        bool keepGoing = false;
    };
    static void ask(const Asked &asked);

    // A number of steps from a text: whole, and at least 1.
    static std::optional<int> countFrom(const QString &text);

    bool operator==(const BuildSettings &) const = default;
};

} // namespace MorvalenCore
