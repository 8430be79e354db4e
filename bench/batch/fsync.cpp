// Gives tclsh the command "fsync PATH", which Tcl 8.6 lacks.
#include <tcl.h>

#include <fcntl.h>
#include <unistd.h>

namespace {

int synchronize(ClientData, Tcl_Interp *interp, int count, Tcl_Obj *const *words)
{
    const int file = count == 2 ? open(Tcl_GetString(words[1]), O_RDONLY | O_CLOEXEC) : -1;
    const bool done = file >= 0 && fsync(file) == 0;
    if (file >= 0)
        close(file);
    if (!done)
        Tcl_SetObjResult(interp, Tcl_NewStringObj("fsync failed", -1));
    return done ? TCL_OK : TCL_ERROR;
}

} // namespace

extern "C" __attribute__((visibility("default"))) int Fsync_Init(Tcl_Interp *interp)
{
    Tcl_CreateObjCommand(interp, "fsync", synchronize, nullptr, nullptr);
    return TCL_OK;
}
