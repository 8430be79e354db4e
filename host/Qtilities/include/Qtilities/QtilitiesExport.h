#pragma once

#include <QtGlobal>

#if __cplusplus < 202002L
#    error "These headers are C++20: compile what includes them with -std=c++20 or later"
#endif

// Marks what the shared library Qtilities offers.
#if defined(QTILITIES_LIBRARY)
#    define QTILITIES_EXPORT Q_DECL_EXPORT
#else
#    define QTILITIES_EXPORT Q_DECL_IMPORT
#endif
