#pragma once

#include <QString>

// What the session's settings are called that more than one part of the program reads or writes.
namespace MorvalenCore::SettingKeys {

// The vendor of designs that are given none, and what it is in new settings.
inline const QString vendor = QStringLiteral("Designs/Environment/organization_name");
inline const QString firstVendor = QStringLiteral("local");

// The words in front of every step's command.
inline const QString launcher = QStringLiteral("Builds/launcher");

// How many steps run at once, and whether those that do not depend on a failed one still run.
inline const QString jobs = QStringLiteral("Builds/jobs");
inline const QString keepGoing = QStringLiteral("Builds/keep_going");

// A group: names of pools, and how many steps of each run at once.
inline const QString pools = QStringLiteral("Pools");

// The folders that builds may write into besides the designs' own.
inline const QString targetFolders = QStringLiteral("Builds/target_folders");

} // namespace MorvalenCore::SettingKeys
