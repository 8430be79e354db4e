#pragma once

#include <QString>

#include <utility>

namespace MorvalenCore {

// An open file descriptor, closed with the object. Not open when the number is negative.
class Descriptor
{
public:
    explicit Descriptor(int opened = -1) : number(opened) { }
    ~Descriptor();
    Descriptor(Descriptor &&other) noexcept : number(std::exchange(other.number, -1)) { }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    Descriptor &operator=(Descriptor &&) = delete;

    explicit operator bool() const { return number >= 0; }
    int get() const { return number; }
    int release() { return std::exchange(number, -1); }

    // The folder at an absolute path, reached from the root without following any link; not open,
    // with errno set, when there is a link on the way or no such folder.
    static Descriptor folderWithoutLinks(const QString &path);

    // The folder of that name in an open folder, which must not be a link.
    static Descriptor folderIn(int folder, const char *name);

private:
    int number;
};

} // namespace MorvalenCore
