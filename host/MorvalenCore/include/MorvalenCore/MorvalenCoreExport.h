#pragma once

#include <QtGlobal>

#if __cplusplus < 202002L
#    error "These headers are C++20: compile what includes them with -std=c++20 or later"
#endif

// Marks what the shared library MorvalenCore offers.
#if defined(MORVALENCORE_LIBRARY)
#    define MORVALENCORE_EXPORT Q_DECL_EXPORT
#else
#    define MORVALENCORE_EXPORT Q_DECL_IMPORT
#endif
