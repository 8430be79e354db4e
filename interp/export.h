#pragma once

#include <QtGlobal>

// Marks what the shared library TclScripting offers to hosts.
#if defined(TCLSCRIPTING_LIBRARY)
#    define TCLSCRIPTING_EXPORT Q_DECL_EXPORT
#else
#    define TCLSCRIPTING_EXPORT Q_DECL_IMPORT
#endif
