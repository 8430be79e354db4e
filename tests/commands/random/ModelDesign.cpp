#include "tests/commands/random/ModelDesign.h"

#include "tests/commands/random/vocabulary.h"

#include <QCoreApplication>

#include <tcl.h>

using namespace Qt::Literals::StringLiterals;
using vocabulary::isKept;

namespace {

const QStringList fileSets {u"rtl"_s, u"testbench"_s, u"constraints"_s, u"documents"_s};

ModelAnswer ok(const QString &text) { return {TCL_OK, text}; }
ModelAnswer error(const QString &text) { return {TCL_ERROR, text}; }

} // namespace

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

ModelDesign::ModelDesign(const QString &designsFolder)
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

QList<ModelPath> ModelDesign::filePaths() const
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

QList<ModelPath> ModelDesign::folderPaths() const
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

ModelPath ModelDesign::pathOf(const ModelKind &kind, const QString &word) const
{
    for (const ModelPath &path : &kind == &files ? filePaths() : folderPaths()) {
        if (path.word == word || path.actual == word)
            return path;
    }
    // The path of an item that is asked about.
    return {word, word, {}, {}};
}

QString ModelDesign::keyOf(const ModelKind &kind, const QString &word) const
{
    return isPath(kind) ? pathOf(kind, word).actual : word;
}

// Files are told of file set by file set.
QList<ModelItem> ModelDesign::inOrder(const ModelKind &kind) const
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

ModelAnswer ModelDesign::usage(const QString &about, const QString &word) const
{
    return {TCL_ERROR,
            u"Performs actions on %1design \"%2\".\nUsage: %3 args\n"_s.arg(about, texts[u"name"_s],
                                                                            word),
            true};
}

void ModelDesign::reopened()
{
    for (ModelKind *kind : {&files, &folders, &properties})
        kind->active.clear();
    busy = false;
}

ModelAnswer ModelDesign::answer(const QStringList &words)
{
    const QString &command = words.first();
    if (command == u"design")
        return designAnswer(words);
    if (command == u"overview")
        return overviewAnswer();
    for (ModelKind *kind : {&files, &folders, &properties}) {
        if (command == kind->plural)
            return collectionAnswer(*kind, words);
        if (command == u's' + kind->word)
            return itemAnswer(*kind, words);
    }
    return error({});
}

QString ModelDesign::attribute(const QString &name) const
{
    if (name == u"id")
        return QStringList {texts[u"vendor"_s], texts[u"library"_s], texts[u"name"_s],
                            texts[u"version"_s]}
            .join(u'.');
    if (name == u"wfp")
        return workingFolder;
    if (name == u"busy" || name == u"read_only")
        return (name == u"busy" ? busy : readOnly) ? u"true"_s : u"false"_s;
    return texts.value(name);
}

ModelAnswer ModelDesign::designAnswer(const QStringList &words)
{
    const QString word = words.value(1);
    const QString file = workingFolder + u"/component.xml"_s;
    if (word == u"get" && words.size() == 3)
        return ok(attribute(words[2]));
    if (word == u"set")
        return setAttribute(words);
    if (word == u"save" && words.size() == 2)
        return ok(u"Successfully saved design to file \"%1\""_s.arg(file));
    if (word == u"save")
        return ok(u"Successfully parsed design to file \"%1\""_s.arg(words[2]));
    if (word == u"clean" && words.size() == 3 && !vocabulary::truthOf(words[2]))
        return error(u"Specifying if generated files from all versions must be cleaned is "
                     "specified using \"true\" or \"false\" (Case Insensitive)"_s);
    if (word == u"clean")
        return ok((readOnly ? u"The design \"%1\" is read-only and was not cleaned"_s
                            : u"Nothing to clean in design \"%1\""_s)
                      .arg(texts[u"name"_s]));
    if (word == u"assign_physical_wfp") {
        for (const QString &set : fileSets)
            disk.addFolder(workingFolder + u'/' + set);
        return ok(u"Successfully assigned physical working folder to active design."_s);
    }
    return usage({}, u"design"_s);
}

ModelAnswer ModelDesign::setAttribute(const QStringList &words)
{
    const QString what = words[2];
    const QString text = words[3];
    const std::optional<bool> truth = vocabulary::truthOf(text);
    if (what == u"name" && (readOnly || !vocabulary::names.first(3).contains(text))
        && text != texts[what])
        return {TCL_ERROR, {}, true};
    if (what == u"read_only" && !truth)
        return error(u"New read only state's value is specified using \"true\" or \"false\" "
                     "(Case Insensitive)"_s);
    if (what == u"busy" && !truth)
        return error(u"New busy state's value is specified using \"true\" or \"false\" "
                     "(Case Insensitive)"_s);
    if (what == u"read_only")
        readOnly = *truth;
    else if (what == u"busy")
        busy = *truth;
    else if (!readOnly && isKept(text))
        texts[what] = text;
    return ok(u"Successfully changed \"%1\" on active design"_s.arg(what));
}

ModelAnswer ModelDesign::overviewAnswer() const
{
    const auto shown = [](const ModelKind &kind) {
        return kind.active.isEmpty() ? u"0 active "_s + kind.plural : kind.active;
    };
    return {TCL_OK,
            u"Active Design                       - %1\n"
            "Active Design Build Configuration   - No active build configuration\n"
            "Active Design File                  - %2\n"
            "Active Design Folder                - %3\n"
            "Active Design Property              - %4\n"
            "Active Project                      - No open project\n"
            "Application Directory               - %5\n"_s.arg(
                texts[u"name"_s], shown(files), shown(folders), shown(properties),
                QCoreApplication::applicationDirPath()),
            true};
}

QList<QStringList> ModelDesign::questions() const
{
    QList<QStringList> all {{u"overview"_s}};
    for (const QString &name : {u"name"_s, u"description"_s, u"id"_s, u"vendor"_s, u"library"_s,
                                u"author"_s, u"version"_s, u"wfp"_s, u"busy"_s, u"read_only"_s})
        all.append({u"design"_s, u"get"_s, name});
    for (const ModelKind *kind : {&files, &folders, &properties}) {
        all.append({kind->plural, u"list"_s});
        for (const ModelItem &item : kind->items)
            all.append({kind->plural, u"category"_s, item.key});
    }
    for (const QString &node : vocabulary::nodes)
        all.append({files.plural, u"list"_s, node});
    return all;
}
