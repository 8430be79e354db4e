#pragma once

#include <Qtilities/Status.h>

#include <QString>
#include <QStringList>

namespace MorvalenCore {

// The working folder of a new design. It remembers what it made on disk and takes that back when
// it is destroyed, unless it was told to keep it.
class WorkingFolder
{
public:
    WorkingFolder() = default;
    ~WorkingFolder();
    WorkingFolder(const WorkingFolder &) = delete;
    WorkingFolder &operator=(const WorkingFolder &) = delete;

    // Makes the folder and the named ones in it. It must not be there, or be empty; of several
    // processes that try at one time, at most one succeeds. On failure nothing is left that was
    // made here.
    Qtilities::Core::Status make(const QString &path, const QStringList &folders);

    // Counts a file that was written into the folder to what is taken back.
    void addFile(const QString &name) { file = place + u'/' + name; }

    void keep() { isKept = true; }
    void takeBack();

private:
    Qtilities::Core::Status makeFolder(const QString &path);
    Qtilities::Core::Status claim(const QStringList &folders);

    QString place;
    QString file;
    // Those made here, outer ones first.
    QStringList made;
    bool isKept = false;
};

} // namespace MorvalenCore
