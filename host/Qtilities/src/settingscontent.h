#pragma once

#include <Qtilities/Status.h>

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QVariant>

#include <utility>

namespace Qtilities::Core {

// What a file of settings holds.
struct SettingsContent
{
    QByteArray bytes;
    QMap<QString, QVariant> values;
};

// Malformed when they are not those of a file of settings.
Result<SettingsContent> parseSettings(const QByteArray &bytes);

// The same settings with values set, or removed when they are invalid; nothing is written.
using SettingsChanges = QList<std::pair<QString, QVariant>>;
Result<SettingsContent> changeSettings(const QByteArray &bytes, const SettingsChanges &changes);

} // namespace Qtilities::Core
