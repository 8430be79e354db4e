#include "interp/tcltext.h"

namespace tcltext {

QString fromTcl(const char *text)
{
    return text ? fromTcl(text, qsizetype(qstrlen(text))) : QString();
}

QString fromTcl(const char *text, qsizetype length) { return QString::fromUtf8(text, length); }

QByteArray toTcl(const QString &text) { return text.toUtf8(); }

void appendResult(Tcl_Interp *interp, const QString &text)
{
    Tcl_AppendResult(interp, toTcl(text).constData(), nullptr);
}

QString result(Tcl_Interp *interp)
{
    int length = 0;
    const char *text = Tcl_GetStringFromObj(Tcl_GetObjResult(interp), &length);
    return fromTcl(text, length);
}

} // namespace tcltext
