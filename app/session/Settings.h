#pragma once

#include <QSettings>

// The settings of the session, which other processes may share: they are opened for a look or a
// change, and not kept open. Writing fails in silence but for isWritable().
class Settings
{
public:
    // The file is the session's unless another one is named.
    Settings();
    explicit Settings(const QString &file);

    QVariant value(const QString &key, const QVariant &usually = {}) const
    {
        return settings.value(key, usually);
    }

    // An invalid value removes the key.
    void set(const QString &key, const QVariant &value);

    // Removes a key, or all keys of a group.
    void remove(const QString &keyOrGroup) { settings.remove(keyOrGroup); }

    // Whether what was set so far is in the file.
    bool isWritable();

private:
    QSettings settings;
};
