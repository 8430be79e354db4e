#pragma once

#include <Qtilities/QtilitiesExport.h>
#include <Qtilities/Status.h>

#include <QList>
#include <QMap>
#include <QString>
#include <QVariant>

#include <utility>

namespace Qtilities::Core {

// A file of settings, which other processes may share: it is opened for a look or a change, and not
// kept open. A file that holds something else is renamed first, so that nothing in it is lost; new
// settings can then be written.
class QTILITIES_EXPORT SettingsFile
{
public:
    // The session's, unless another one is named.
    SettingsFile();
    explicit SettingsFile(const QString &fileName);

    // Whether the file can be used; a remark says where one is that was renamed. Of a file that
    // can neither be read nor put aside nothing is read, and nothing is written to it.
    const Status &status() const { return opened; }

    // What was in the file when it was opened, or written last.
    QVariant value(const QString &key, const QVariant &usually = {}) const;
    // The names of a group, without the group.
    QStringList keys(const QString &group) const;

    // Changes wait for write(). An invalid value removes the key.
    void set(const QString &key, const QVariant &value) { changes.append({key, value}); }
    // Removes a key, or all keys of a group.
    void remove(const QString &keyOrGroup) { set(keyOrGroup, {}); }

    // Makes the changes in the file as it is now. It is the old one or the new one whatever
    // happens, and processes that share it change it one after the other.
    Status write();

private:
    QString name;
    Status opened;
    QMap<QString, QVariant> values;
    QList<std::pair<QString, QVariant>> changes;
};

} // namespace Qtilities::Core
