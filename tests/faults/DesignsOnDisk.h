#pragma once

#include <QString>

namespace MorvalenCore::Interfaces {
class IDesign;
}

// Designs of a session in a folder, for writers.
class DesignsOnDisk
{
public:
    // Forgets what is open, and makes the folder the session's.
    explicit DesignsOnDisk(const QString &folder);
    ~DesignsOnDisk();

    static void forgetAll();
    static void write(const QString &file, const QByteArray &bytes);
    static QByteArray component(const char *name);

    QString path(const char *name) const;
    MorvalenCore::Interfaces::IDesign *open(const char *file) const;

private:
    QString folder;
};
