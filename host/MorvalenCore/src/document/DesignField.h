#pragma once

namespace MorvalenCore {

// Texts that a component has once. Vendor, library, name and version identify it.
enum class DesignField { Vendor, Library, Name, Version, Description, Author, Type, Structure };

} // namespace MorvalenCore
