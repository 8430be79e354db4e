#include "interp/patientreading.h"

#include "interp/CoveredCommand.h"
#include "interp/WaitingChannel.h"

#include <memory>
#include <string_view>

namespace {

struct Release
{
    void operator()(Tcl_Obj *object) const { Tcl_DecrRefCount(object); }
};
using Object = std::unique_ptr<Tcl_Obj, Release>;

Object emptyObject()
{
    Tcl_Obj *object = Tcl_NewObj();
    Tcl_IncrRefCount(object);
    return Object(object);
}

// The channel of that name, if reading it could stand still; or null.
Tcl_Channel waitingChannel(Tcl_Interp *interp, Tcl_Obj *name)
{
    int mode = 0;
    const Tcl_Channel channel = Tcl_GetChannel(interp, Tcl_GetString(name), &mode);
    return channel && (mode & TCL_READABLE) && WaitingChannel::isOne(channel) ? channel : nullptr;
}

int tellFailure(Tcl_Interp *interp, Tcl_Obj *name, int error)
{
    Tcl_SetErrno(error);
    Tcl_SetObjResult(
        interp,
        Tcl_ObjPrintf("error reading \"%s\": %s", Tcl_GetString(name), Tcl_PosixError(interp)));
    return TCL_ERROR;
}

int getLine(Tcl_Interp *interp, Tcl_Channel channel, int objc, Tcl_Obj *const *objv)
{
    const Object line = emptyObject();
    int length = -1;
    {
        const WaitingChannel waiting(channel);
        while ((length = Tcl_GetsObj(channel, line.get())) < 0 && !Tcl_Eof(channel)) {
            if (!Tcl_InputBlocked(channel))
                return tellFailure(interp, objv[1], Tcl_GetErrno());
            if (waiting.wait(interp) != TCL_OK)
                return TCL_ERROR;
        }
    }
    if (objc == 2) {
        Tcl_SetObjResult(interp, line.get());
        return TCL_OK;
    }
    if (!Tcl_ObjSetVar2(interp, objv[2], nullptr, line.get(), TCL_LEAVE_ERR_MSG))
        return TCL_ERROR;
    Tcl_SetObjResult(interp, Tcl_NewIntObj(length));
    return TCL_OK;
}

// So many characters, or all for -1.
int readCharacters(Tcl_Interp *interp, Tcl_Channel channel, Tcl_Obj *name, int count, Tcl_Obj *text)
{
    const WaitingChannel waiting(channel);
    int left = count;
    for (;;) {
        const int done = Tcl_ReadChars(channel, text, left, 1);
        if (done < 0)
            return tellFailure(interp, name, Tcl_GetErrno());
        left -= count < 0 ? 0 : done;
        if (left == 0 || Tcl_Eof(channel))
            return TCL_OK;
        if (waiting.wait(interp) != TCL_OK)
            return TCL_ERROR;
    }
}

void dropLastLineFeed(Tcl_Obj *text)
{
    int length = 0;
    const char *bytes = Tcl_GetStringFromObj(text, &length);
    if (length > 0 && bytes[length - 1] == '\n')
        Tcl_SetObjLength(text, length - 1);
}

int patientGets(ClientData data, Tcl_Interp *interp, int objc, Tcl_Obj *const *objv)
{
    if (objc == 2 || objc == 3) {
        if (const Tcl_Channel channel = waitingChannel(interp, objv[1]))
            return getLine(interp, channel, objc, objv);
    }
    return static_cast<CoveredCommand *>(data)->call(interp, objc, objv);
}

int patientRead(ClientData data, Tcl_Interp *interp, int objc, Tcl_Obj *const *objv)
{
    const auto *original = static_cast<CoveredCommand *>(data);
    if (objc != 2 && objc != 3)
        return original->call(interp, objc, objv);
    const bool keepsEnd = std::string_view(Tcl_GetString(objv[1])) != "-nonewline";
    int count = -1;
    if (objc == 3 && keepsEnd
        && (Tcl_GetIntFromObj(nullptr, objv[2], &count) != TCL_OK || count < 0))
        return original->call(interp, objc, objv);
    Tcl_Obj *name = objv[keepsEnd ? 1 : objc - 1];
    const Tcl_Channel channel = waitingChannel(interp, name);
    if (!channel)
        return original->call(interp, objc, objv);
    const Object text = emptyObject();
    if (readCharacters(interp, channel, name, count, text.get()) != TCL_OK)
        return TCL_ERROR;
    if (!keepsEnd)
        dropLastLineFeed(text.get());
    Tcl_SetObjResult(interp, text.get());
    return TCL_OK;
}

} // namespace

void makeReadingPatient(Tcl_Interp *interp)
{
    for (const char *name : {"::gets", "::tcl::chan::gets"})
        CoveredCommand::cover(interp, name, patientGets);
    for (const char *name : {"::read", "::tcl::chan::read"})
        CoveredCommand::cover(interp, name, patientRead);
}
