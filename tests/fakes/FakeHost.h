#pragma once

#include "tests/fakes/FakeChangeBracket.h"
#include "tests/fakes/FakeDesignFactory.h"
#include "tests/fakes/FakeDesignManager.h"
#include "tests/fakes/FakeDesignStructureManager.h"
#include "tests/fakes/FakeEditorManager.h"
#include "tests/fakes/FakeLogger.h"
#include "tests/fakes/FakeMorvalenManager.h"
#include "tests/fakes/FakeProjectManager.h"

#include <Qtilities/ObjectManager.h>

// A whole host in memory: takes the place of the real one as long as it lives. All parts write to
// one journal. Needs an application object with a display, real or offscreen.
class FakeHost
{
public:
    FakeHost();
    ~FakeHost();
    Q_DISABLE_COPY_MOVE(FakeHost)

    // Opens a design and makes it the active one, without noting it.
    FakeDesign *activeDesign(const QString &name = QStringLiteral("uart"));

    Journal journal;
    Qtilities::Core::ObjectManager objects;
    FakeDesignFactory factory {journal};
    FakeLogger logger {journal};
    FakeChangeBracket bracket {journal};
    FakeDesignManager designs {journal};
    FakeDesignStructureManager structures {journal};
    FakeProjectManager projects {journal};
    FakeEditorManager editors {journal};
    FakeMorvalenManager program;
};
