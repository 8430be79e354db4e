#pragma once

#include "interp/commandsManager.h"
#include "interp/tcltext.h"

#include <QStringList>

#include <utility>
#include <vector>

// The return code and the text of a call whose words are as they are, whatever they hold.
inline std::pair<int, QString> evaluated(const QStringList &words)
{
    Tcl_Interp *interp = commandsManager::getInstance(nullptr)->interp;
    std::vector<Tcl_Obj *> objects;
    for (const QString &word : words) {
        const QByteArray bytes = tcltext::toTcl(word);
        objects.push_back(Tcl_NewStringObj(bytes.constData(), int(bytes.size())));
        Tcl_IncrRefCount(objects.back());
    }
    const int code = Tcl_EvalObjv(interp, int(objects.size()), objects.data(), 0);
    for (Tcl_Obj *object : objects)
        Tcl_DecrRefCount(object);
    return {code, tcltext::result(interp)};
}
