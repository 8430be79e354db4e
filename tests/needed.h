#pragma once

#include <QStandardPaths>
#include <QTest>

// Skips a test where something that nobody must have to build and run the program is missing, and
// says what and in which package of Debian it is; "make test" says it again at its end. Under CI,
// where scripts/prerequisites installs all of it, a missing one is a failure.
#define NEEDS(isThere, what, package) \
    do { \
        if (isThere) \
            break; \
        const QByteArray reason = \
            QByteArray(what) + " is not installed (Debian: " + package + ')'; \
        if (qEnvironmentVariableIsSet("CI")) \
            QFAIL(reason.constData()); \
        QSKIP(reason.constData()); \
    } while (false)

#define NEEDS_TOOL(name, package) \
    NEEDS(!QStandardPaths::findExecutable(QString::fromLatin1(name)).isEmpty(), name, package)

// Skips a test where the kernel lets this user mount nothing, as in most containers: a permission
// of the machine, which nothing that is installed can give, under CI neither.
#define NEEDS_MOUNTS(areAllowed) \
    do { \
        if (!(areAllowed)) \
            QSKIP("The kernel lets this user mount nothing, as in most containers."); \
    } while (false)
