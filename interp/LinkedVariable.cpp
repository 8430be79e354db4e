#include "interp/LinkedVariable.h"

#include <cstring>

namespace {

constexpr int beforeFlags = TCL_GLOBAL_ONLY | TCL_TRACE_READS | TCL_TRACE_WRITES | TCL_TRACE_UNSETS;
constexpr int afterFlags = TCL_GLOBAL_ONLY | TCL_TRACE_WRITES | TCL_TRACE_UNSETS;

class LinkedInt : public LinkedVariable
{
public:
    LinkedInt(Tcl_Interp *interp, const char *name, int &variable)
        : LinkedVariable(interp, name, &variable, &variable, TCL_LINK_INT)
    {
    }
};

class LinkedBool : public LinkedVariable
{
public:
    LinkedBool(Tcl_Interp *interp, const char *name, bool &boolean)
        : LinkedVariable(interp, name, &boolean, &standIn, TCL_LINK_BOOLEAN),
          variable(boolean)
    {
    }

protected:
    void pull() override { standIn = variable; }
    void push() override { variable = standIn != 0; }

private:
    bool &variable;
    int standIn = 0;
};

char *copyForTcl(const char *text)
{
    if (!text)
        return nullptr;
    const size_t size = std::strlen(text) + 1;
    return static_cast<char *>(std::memcpy(Tcl_Alloc(unsigned(size)), text, size));
}

class LinkedText : public LinkedVariable
{
public:
    LinkedText(Tcl_Interp *interp, const char *name, char *&text)
        : LinkedVariable(interp, name, &text, &standIn, TCL_LINK_STRING),
          variable(text)
    {
    }

    // A text that the program was given stays the program's.
    ~LinkedText() override { freeOwnText(); }

protected:
    void pull() override
    {
        if (variable == standIn)
            return;
        freeOwnText();
        standIn = copyForTcl(variable);
        given = false;
    }

    void push() override
    {
        variable = standIn;
        given = true;
    }

    void adopt() override
    {
        pull();
        push();
    }

private:
    void freeOwnText()
    {
        if (standIn && !given)
            Tcl_Free(standIn);
    }

    char *&variable;
    char *standIn = nullptr;
    bool given = false; // the program's variable was pointed to the stand-in's text
};

template <typename Link, typename T>
std::unique_ptr<LinkedVariable> createLink(Tcl_Interp *interp, const char *name, T &variable)
{
    auto link = std::make_unique<Link>(interp, name, variable);
    link->linkAgain();
    return link;
}

} // namespace

std::unique_ptr<LinkedVariable> LinkedVariable::create(Tcl_Interp *interp, const char *name,
                                                       int &variable)
{
    return createLink<LinkedInt>(interp, name, variable);
}

std::unique_ptr<LinkedVariable> LinkedVariable::create(Tcl_Interp *interp, const char *name,
                                                       bool &variable)
{
    return createLink<LinkedBool>(interp, name, variable);
}

std::unique_ptr<LinkedVariable> LinkedVariable::create(Tcl_Interp *interp, const char *name,
                                                       char *&variable)
{
    return createLink<LinkedText>(interp, name, variable);
}

LinkedVariable::LinkedVariable(Tcl_Interp *interp, const char *name, void *variable,
                               void *tclVariable, int linkType)
    : tcl(interp),
      key(name),
      program(variable),
      linked(tclVariable),
      type(linkType)
{
    Tcl_CallWhenDeleted(tcl, &LinkedVariable::interpDeleted, this);
}

LinkedVariable::~LinkedVariable()
{
    unlink();
    if (tcl)
        Tcl_DontCallWhenDeleted(tcl, &LinkedVariable::interpDeleted, this);
}

void LinkedVariable::linkAgain()
{
    unlink();
    adopt();
    link();
}

// Tcl runs the newest trace of a variable first, so the order of these three calls is what puts
// one trace before Tcl's own and one after it.
void LinkedVariable::link()
{
    if (!tcl)
        return;
    Tcl_TraceVar2(tcl, key, nullptr, afterFlags, &LinkedVariable::afterLink, this);
    if (Tcl_LinkVar(tcl, key, static_cast<char *>(linked), type) == TCL_OK)
        Tcl_TraceVar2(tcl, key, nullptr, beforeFlags, &LinkedVariable::beforeLink, this);
}

void LinkedVariable::unlink()
{
    if (!tcl)
        return;
    Tcl_UntraceVar2(tcl, key, nullptr, beforeFlags, &LinkedVariable::beforeLink, this);
    Tcl_UnlinkVar(tcl, key);
    Tcl_UntraceVar2(tcl, key, nullptr, afterFlags, &LinkedVariable::afterLink, this);
}

char *LinkedVariable::beforeLink(ClientData self, Tcl_Interp *, const char *, const char *, int)
{
    static_cast<LinkedVariable *>(self)->pull();
    return nullptr;
}

char *LinkedVariable::afterLink(ClientData self, Tcl_Interp *, const char *, const char *,
                                int flags)
{
    auto *link = static_cast<LinkedVariable *>(self);
    if (flags & TCL_INTERP_DESTROYED)
        return nullptr;
    if (flags & TCL_TRACE_DESTROYED) {
        // Tcl has restored the variable and its own trace, which is now in the wrong place.
        link->unlink();
        link->link();
    } else if (flags & TCL_TRACE_WRITES) {
        link->push();
    }
    return nullptr;
}

void LinkedVariable::interpDeleted(ClientData self, Tcl_Interp *)
{
    static_cast<LinkedVariable *>(self)->tcl = nullptr;
}
