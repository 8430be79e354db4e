#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QByteArray>
#include <QByteArrayView>

#include <utility>

namespace Qtilities::Core {

// An open file descriptor, closed with the object. Not open when the number is negative.
class QTILITIES_EXPORT Descriptor
{
public:
    explicit Descriptor(int opened = -1) : number(opened) { }
    ~Descriptor() { close(); }
    Descriptor(Descriptor &&other) noexcept : number(other.release()) { }
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        close();
        number = other.release();
        return *this;
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    // Opens a path with the flags and mode of open(2); child processes do not get it. errno says
    // why it is not open.
    static Descriptor open(const QByteArray &path, int flags, unsigned int mode = 0);
    // The same for a path that begins in an open folder.
    static Descriptor openAt(const Descriptor &folder, const QByteArray &path, int flags,
                             unsigned int mode = 0);

    explicit operator bool() const { return number >= 0; }
    int get() const { return number; }
    int release() { return std::exchange(number, -1); }

    // All of it. False, with errno set, when some of it may not be there.
    bool write(QByteArrayView bytes) const;

    // False, with errno set, when something that was written may not be there. errno stays as it
    // is otherwise.
    bool close();

private:
    int number;
};

} // namespace Qtilities::Core
