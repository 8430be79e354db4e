#pragma once

#include "interp/commandsManager.h"
#include "interp/tcltext.h"

#include <QObject>

// What tests of the registry of commands share: each has a registry of its own.
class RegistryTest : public QObject
{
    Q_OBJECT

protected:
    // The result of a script; with another return code than expected, that code in front.
    QString eval(const char *script, int expected = TCL_OK)
    {
        const int code = Tcl_Eval(registry->interp, script);
        const QString answer = tcltext::result(registry->interp);
        return code == expected ? answer : QStringLiteral("code %1: ").arg(code) + answer;
    }

    commandsManager *registry = nullptr;

protected Q_SLOTS:
    void init() { registry = commandsManager::getInstance(nullptr); }
    void cleanup() { delete registry; }
};
