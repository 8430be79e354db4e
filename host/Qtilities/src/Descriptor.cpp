#include <Qtilities/Descriptor.h>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace Qtilities::Core {

Descriptor Descriptor::open(const QByteArray &path, int flags, unsigned int mode)
{
    return Descriptor(::open(path.constData(), flags | O_CLOEXEC, mode));
}

Descriptor Descriptor::openAt(const Descriptor &folder, const QByteArray &path, int flags,
                              unsigned int mode)
{
    return Descriptor(::openat(folder.get(), path.constData(), flags | O_CLOEXEC, mode));
}

bool Descriptor::write(QByteArrayView bytes) const
{
    while (!bytes.isEmpty()) {
        const ssize_t count = ::write(number, bytes.data(), size_t(bytes.size()));
        if (count < 0 && errno != EINTR)
            return false;
        bytes = bytes.sliced(count > 0 ? count : 0);
    }
    return true;
}

bool Descriptor::close()
{
    if (number < 0)
        return true;
    const int before = errno;
    const bool closed = ::close(release()) == 0;
    if (closed)
        errno = before;
    return closed;
}

} // namespace Qtilities::Core
