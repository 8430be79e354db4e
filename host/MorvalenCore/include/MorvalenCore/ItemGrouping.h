#pragma once

namespace MorvalenCore {

// Selects items of a design. Unless told otherwise, generated items of all versions.
class ItemGrouping
{
public:
    // Only items that a build made.
    bool generatedItemsOnly() const { return generatedOnly; }
    void setGeneratedItemsOnly(bool flag) { generatedOnly = flag; }

    // Items made by the current version of the design, and those made by earlier ones.
    bool versionCurrent() const { return current; }
    void setVersionCurrent(bool flag) { current = flag; }
    bool versionsPrevious() const { return previous; }
    void setVersionsPrevious(bool flag) { previous = flag; }

private:
    bool generatedOnly = true;
    bool current = true;
    bool previous = true;
};

} // namespace MorvalenCore
