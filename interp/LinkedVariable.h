#pragma once

#include <QByteArray>

#include <memory>

#include <tcl.h>

// A variable of the program that scripts read and write under a Tcl name, from its creation until
// it is destroyed or the interpreter is deleted. The registry owns one for each name.
//
// Tcl's own link does the checking and converting. Where it must not touch the program's variable
// (it writes four bytes into a bool, and frees a text that may be a literal) it is given a stand-in
// instead, and two traces around it keep the two in step.
class LinkedVariable
{
public:
    // The variable must outlive the link. A name that Tcl refuses, such as that of an array, stays
    // unlinked.
    static std::unique_ptr<LinkedVariable> create(Tcl_Interp *interp, const char *name,
                                                  int &variable);
    static std::unique_ptr<LinkedVariable> create(Tcl_Interp *interp, const char *name,
                                                  bool &variable);
    static std::unique_ptr<LinkedVariable> create(Tcl_Interp *interp, const char *name,
                                                  char *&variable);

    virtual ~LinkedVariable();
    Q_DISABLE_COPY_MOVE(LinkedVariable)

    // Whether this links the program's variable at address.
    bool isOf(const void *address) const { return address == program; }

    // Takes over what the program's variable holds now and links the name anew.
    void linkAgain();

protected:
    // What Tcl is to link, the program's variable or its stand-in, and the link's type.
    LinkedVariable(Tcl_Interp *interp, const char *name, void *program, void *linked, int type);

    // Brings the stand-in up to date before Tcl reads, writes or restores it.
    virtual void pull() { }

    // Brings the program's variable up to date after a script has written the stand-in.
    virtual void push() { }

    // Makes the stand-in when the name is linked.
    virtual void adopt() { pull(); }

private:
    void link();
    void unlink();

    static char *beforeLink(ClientData self, Tcl_Interp *, const char *, const char *, int flags);
    static void interpDeleted(ClientData self, Tcl_Interp *);
    static char *afterLink(ClientData self, Tcl_Interp *, const char *, const char *, int flags);

    Tcl_Interp *tcl; // null once it is deleted
    const QByteArray key;
    const void *const program;
    void *const linked;
    const int type;
};
