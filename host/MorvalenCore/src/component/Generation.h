#pragma once

namespace MorvalenCore {

// The generations of IP-XACT that are read and written. A document is saved in the one it came in.
enum class Generation { Spirit14, Spirit15, Ieee2009, Ieee2014, Ieee2022 };

} // namespace MorvalenCore
