#include "tests/ensemble/EnsembleTest.h"

#include "ensemble/ensemble.h"

using namespace Qt::Literals::StringLiterals;

EnsembleTest::EnsembleTest() { ensemble::create(interp(), u"/the folder/of the call"_s); }

CommandTest::Row EnsembleTest::good(const char *name, const QByteArray &script,
                                    const QByteArray &text, const QByteArray &journal,
                                    const Setup &setup)
{
    return {name, script, TCL_OK, text, journal, setup};
}

// The code is part of what is compared.
CommandTest::Row EnsembleTest::bad(const char *name, const QByteArray &script,
                                   const QByteArray &text, const QByteArray &kind,
                                   const QByteArray &journal, const Setup &setup)
{
    return {name,
            "list [catch {" + script
                + "} text] $errorCode; "
                  "return -code error \"$text\\n$errorCode\"",
            TCL_ERROR,
            text + "\nMORVALEN " + kind,
            journal,
            setup};
}
