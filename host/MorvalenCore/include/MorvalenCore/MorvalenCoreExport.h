#pragma once

#include <QtGlobal>

// Marks what the shared library MorvalenCore offers.
#if defined(MORVALENCORE_LIBRARY)
#    define MORVALENCORE_EXPORT Q_DECL_EXPORT
#else
#    define MORVALENCORE_EXPORT Q_DECL_IMPORT
#endif
