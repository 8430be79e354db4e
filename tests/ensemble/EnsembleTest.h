#pragma once

#include "tests/commands/CommandTest.h"

// What a test of the ensemble needs: a command test whose interpreter has the ensemble in it.
class EnsembleTest : public CommandTest
{
    Q_OBJECT

protected:
    EnsembleTest();

    // A row about a call that succeeds.
    static Row good(const char *name, const QByteArray &script, const QByteArray &text,
                    const QByteArray &journal = {}, const Setup &setup = {});

    // A row about a call that fails, with its text and the kind in its error code.
    static Row bad(const char *name, const QByteArray &script, const QByteArray &text,
                   const QByteArray &kind, const QByteArray &journal = {}, const Setup &setup = {});
};
