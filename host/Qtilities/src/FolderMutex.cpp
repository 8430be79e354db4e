#include <Qtilities/FolderMutex.h>

#include <QFile>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

namespace Qtilities::Core {

namespace {

constexpr int patience = 3'000; // milliseconds
constexpr int pause = 10;

} // namespace

// Where the system has no locks for the folder nobody is kept out.
FolderMutex::FolderMutex(const QString &folder)
    : descriptor(Descriptor::open(QFile::encodeName(folder), O_RDONLY | O_DIRECTORY))
{
    for (int waited = 0; !taken && waited < patience; waited += pause) {
        taken = !descriptor || ::flock(descriptor.get(), LOCK_EX | LOCK_NB) == 0
            || errno != EWOULDBLOCK;
        if (!taken)
            QThread::msleep(pause);
    }
}

} // namespace Qtilities::Core
