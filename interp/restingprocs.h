#pragma once

#include <tcl.h>

// What a notifier that rests gives to Tcl in place of the record of Qtk_InitNotifier: procedures
// that each thread may call. On the GUI thread they are those of notifierprocs.h, with times
// rounded up to whole milliseconds; on any other thread they are its ThreadNotifier's.
Tcl_NotifierProcs restingProcs();
