#include "ensemble/subcommands.h"

#include "ensemble/builds.h"
#include "ensemble/configurations.h"
#include "ensemble/identity.h"
#include "ensemble/items.h"
#include "ensemble/journal.h"
#include "ensemble/macros.h"
#include "ensemble/places.h"
#include "ensemble/reload.h"
#include "ensemble/steps.h"
#include "ensemble/templates.h"

namespace ensemble {

namespace {

constexpr Option designOnly[] = {designOption};

// To add a subcommand:
//   1. write its step, or the rows of a group, in a source file that CMakeLists.txt lists;
//   2. add its row here, in alphabetic order;
//   3. write its page docs/ensemble/morvalen-WORD.md, name it in docs/ensemble/morvalen.md and in
//      app/morvalen.qrc, and test it in tests/ensemble.
// tst_EnsemblePages fails while one of the documents is missing.
const Row rows[] = {
    {.word = "build",
     .arguments = "?ID...?",
     .options = buildOptions,
     .does = "builds the active build configurations of designs",
     .step = build},
    {.word = "configuration", .does = "build configurations", .items = &configurationRows},
    {.word = "designs", .does = "the ids of the open designs", .step = listDesigns},
    {.word = "file", .does = "files of a design, one at a time", .items = &fileRows},
    {.word = "files",
     .options = filesOptions,
     .does = "the paths of a design's files",
     .step = listFiles},
    {.word = "folder", .does = "the folder that the program was called in", .step = folder},
    {.word = "folders",
     .options = designOnly,
     .does = "the paths of a design's folders",
     .step = listFolders},
    {.word = "journal",
     .arguments = "?FILE?",
     .does = "what was done so far as commands, or writes it to a file",
     .step = journal},
    {.word = "macro", .does = "macros of build configurations", .items = &macroRows},
    {.word = "nodes",
     .options = designOnly,
     .does = "the names of a design's nodes",
     .step = listNodes},
    {.word = "properties",
     .options = designOnly,
     .does = "a dictionary of a design's properties and their values",
     .step = listProperties},
    {.word = "property",
     .arguments = "NAME ?VALUE?",
     .options = propertyOptions,
     .does = "reads or sets a property of a design",
     .step = property},
    {.word = "reload",
     .arguments = "?ID?",
     .options = reloadOptions,
     .does = "reads the component file of a design again",
     .step = reload},
    {.word = "restore",
     .arguments = "KIND ITEM",
     .options = designOnly,
     .does = "brings back what was removed from a design",
     .step = restore},
    {.word = "session", .does = "the session folder", .step = session},
    {.word = "step", .does = "steps of build configurations", .items = &stepRows},
    {.word = "templates",
     .arguments = "?NAME?",
     .options = templatesOptions,
     .does = "the templates of build configurations, or all about one of them",
     .step = templates},
    {.word = "version",
     .arguments = "?VERSION?",
     .options = designOnly,
     .does = "reads or sets the version of a design",
     .step = version},
};

} // namespace

Rows subcommands() { return rows; }

} // namespace ensemble
