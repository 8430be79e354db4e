#pragma once

#include "tests/fakes/Journal.h"

#include <MorvalenCore/ChangeBracket.h>

// Notes the brackets around changes.
class FakeChangeBracket : public MorvalenCore::ChangeBracket
{
public:
    explicit FakeChangeBracket(Journal &theJournal) : journal(theJournal) { }

    void open() override { journal.perform(QStringLiteral("initExec")); }
    void close() override { journal.perform(QStringLiteral("finalizeExec")); }

private:
    Journal &journal;
};
