#pragma once

#include <QtGlobal>

// Marks what the shared library Qtilities offers.
#if defined(QTILITIES_LIBRARY)
#    define QTILITIES_EXPORT Q_DECL_EXPORT
#else
#    define QTILITIES_EXPORT Q_DECL_IMPORT
#endif
