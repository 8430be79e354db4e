#include "interp/interruption.h"

int endOrGoOn(Tcl_Interp *interp)
{
    if (Tcl_AsyncReady() && Tcl_AsyncInvoke(interp, TCL_OK) != TCL_OK)
        return TCL_ERROR;
    if (Tcl_Canceled(interp, TCL_LEAVE_ERR_MSG) == TCL_ERROR)
        return TCL_ERROR;
    if (Tcl_LimitReady(interp) && Tcl_LimitCheck(interp) != TCL_OK)
        return TCL_ERROR;
    return TCL_OK;
}
