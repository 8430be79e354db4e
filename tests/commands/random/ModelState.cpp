#include "tests/commands/random/ModelState.h"

#include "tests/commands/random/vocabulary.h"

#include <tcl.h>

using namespace Qt::Literals::StringLiterals;

ModelAnswer ModelAnswer::either(bool good, const QString &right, const QString &wrong)
{
    return good ? ModelAnswer {TCL_OK, right} : ModelAnswer {TCL_ERROR, wrong};
}

ModelItem *ModelKind::find(const QString &key)
{
    for (ModelItem &item : items) {
        if (item.key == key)
            return &item;
    }
    return nullptr;
}

void ModelKind::remove(const QString &key)
{
    items.removeIf([&key](const ModelItem &item) { return item.key == key; });
    if (active == key)
        active.clear();
}

ModelState::ModelState(const QString &designsFolder)
    : disk(designsFolder + u"/d"_s),
      designs(designsFolder),
      workingFolder(designsFolder + u"/d"_s),
      texts {{u"name"_s, u"d"_s},      {u"vendor"_s, u"local"_s}, {u"library"_s, u"global"_s},
             {u"version"_s, u"1.0"_s}, {u"description"_s, {}},    {u"author"_s, {}}}
{
    for (const QString &set : fileSets) {
        disk.addFolder(workingFolder + u'/' + set);
        folders.items.append({workingFolder + u'/' + set, {}, {}, {}});
    }
}

QList<ModelPath> ModelState::filePaths() const
{
    const auto path = [this](const QString &word, const QString &actual, const QString &node,
                             const QString &category) {
        return ModelPath {word, workingFolder + u'/' + actual, node, category};
    };
    return {
        path(u"a.v"_s, u"a.v"_s, u"rtl"_s, u"HDL::Verilog"_s),
        path(u"x/.././a.v"_s, u"a.v"_s, u"rtl"_s, u"HDL::Verilog"_s),
        path(workingFolder + u"/a.v"_s, u"a.v"_s, u"rtl"_s, u"HDL::Verilog"_s),
        path(u"%1 {b} \"$c\" \u20ac.v"_s, u"%1 {b} \"$c\" \u20ac.v"_s, u"rtl"_s, u"HDL::Verilog"_s),
        path(u"testbench\\c.vhd"_s, u"testbench/c.vhd"_s, u"testbench"_s, u"HDL::VHDL"_s),
        path(u"sub/d_tb.v"_s, u"sub/d_tb.v"_s, u"testbench"_s, u"HDL::Verilog"_s),
        path(u"sub/two\nlines.xdc"_s, u"sub/two\nlines.xdc"_s, u"constraints"_s, u"Constraints"_s),
        path(workingFolder + u"/documents/f.v"_s, u"documents/f.v"_s, u"documents"_s,
             u"HDL::Verilog"_s),
        path(u"plain"_s, u"plain"_s, u"rtl"_s, u"Other"_s),
        {u"../out/e.md"_s, designs + u"/out/e.md"_s, u"documents"_s, u"Documentation"_s},
        {u"/"_s, u"/"_s, u"rtl"_s, u"Other"_s},
        {{}, {}, {}, {}},
        path(vocabulary::withZero, vocabulary::withZero, {}, {})};
}

QList<ModelPath> ModelState::folderPaths() const
{
    const auto path = [this](const QString &word, const QString &actual) {
        return ModelPath {word, workingFolder + u'/' + actual, {}, {}};
    };
    return {path(u"sub"_s, u"sub"_s),
            path(u"sub/"_s, u"sub"_s),
            path(u"sub/\"%1\" d"_s, u"sub/\"%1\" d"_s),
            path(workingFolder + u"/rtl"_s, u"rtl"_s),
            path(u"testbench/../testbench"_s, u"testbench"_s),
            path(u"~"_s, u"~"_s),
            {u"."_s, workingFolder, {}, {}},
            {u".."_s, designs, {}, {}},
            {u"../out"_s, designs + u"/out"_s, {}, {}},
            {u"/"_s, u"/"_s, {}, {}},
            {{}, {}, {}, {}},
            path(vocabulary::withZero, vocabulary::withZero)};
}

ModelPath ModelState::pathOf(const ModelKind &kind, const QString &word) const
{
    for (const ModelPath &path : &kind == &files ? filePaths() : folderPaths()) {
        if (path.word == word || path.actual == word)
            return path;
    }
    // The path of an item that is asked about.
    return {word, word, {}, {}};
}

QString ModelState::keyOf(const ModelKind &kind, const QString &word) const
{
    return isPath(kind) ? pathOf(kind, word).actual : word;
}

// Files are told of file set by file set.
QList<ModelItem> ModelState::inOrder(const ModelKind &kind) const
{
    if (&kind != &files)
        return kind.items;
    QList<ModelItem> list;
    for (const QString &set : fileSets) {
        for (const ModelItem &file : kind.items) {
            if (file.node == set)
                list.append(file);
        }
    }
    return list;
}

ModelAnswer ModelState::usage(const QString &about, const QString &word) const
{
    return {TCL_ERROR,
            u"Performs actions on %1design \"%2\".\nUsage: %3 args\n"_s.arg(about, texts[u"name"_s],
                                                                            word),
            true};
}

QString ModelState::categoryOf(const ModelItem &item) const
{
    return item.category.isEmpty() ? item.node : item.category;
}

QString ModelState::addRefusal(const ModelKind &kind, const QString &word) const
{
    const QString name = texts[u"name"_s];
    const QString key = keyOf(kind, word);
    if (readOnly)
        return u"The design \"%1\" is read-only"_s.arg(name);
    if (word.isEmpty())
        return u"The %1 of a %2 cannot be empty"_s.arg(isPath(kind) ? u"path"_s : u"name"_s,
                                                       kind.word);
    if (const_cast<ModelKind &>(kind).find(key))
        return u"The design \"%1\" has the %2 \"%3\" already"_s.arg(name, kind.word, key);
    return vocabulary::isKept(word)
        ? QString()
        : u"The text holds the character U+0000, which XML cannot carry."_s;
}
