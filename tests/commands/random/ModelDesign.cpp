#include "tests/commands/random/ModelDesign.h"

#include "tests/commands/random/ModelCollections.h"
#include "tests/commands/random/ModelItemCalls.h"
#include "tests/commands/random/vocabulary.h"

#include <QCoreApplication>

#include <tcl.h>

using namespace Qt::Literals::StringLiterals;
using vocabulary::isKept;

namespace {

ModelAnswer ok(const QString &text) { return {TCL_OK, text}; }
ModelAnswer error(const QString &text) { return {TCL_ERROR, text}; }

} // namespace

void ModelDesign::reopened()
{
    for (ModelKind *kind : {&state.files, &state.folders, &state.properties})
        kind->active.clear();
    state.busy = false;
}

ModelAnswer ModelDesign::answer(const QStringList &words)
{
    const QString &command = words.first();
    if (command == u"design")
        return designAnswer(words);
    if (command == u"overview")
        return overviewAnswer();
    for (ModelKind *kind : {&state.files, &state.folders, &state.properties}) {
        if (command == kind->plural)
            return ModelCollections(&state).answer(*kind, words);
        if (command == u's' + kind->word)
            return ModelItemCalls(&state).answer(*kind, words);
    }
    return error({});
}

QString ModelDesign::attribute(const QString &name) const
{
    if (name == u"id")
        return QStringList {state.texts[u"vendor"_s], state.texts[u"library"_s],
                            state.texts[u"name"_s], state.texts[u"version"_s]}
            .join(u'.');
    if (name == u"wfp")
        return state.workingFolder;
    if (name == u"busy" || name == u"read_only")
        return (name == u"busy" ? state.busy : state.readOnly) ? u"true"_s : u"false"_s;
    return state.texts.value(name);
}

ModelAnswer ModelDesign::designAnswer(const QStringList &words)
{
    const QString word = words.value(1);
    const QString file = state.workingFolder + u"/component.xml"_s;
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
        return ok((state.readOnly ? u"The design \"%1\" is read-only and was not cleaned"_s
                                  : u"Nothing to clean in design \"%1\""_s)
                      .arg(state.texts[u"name"_s]));
    if (word == u"assign_physical_wfp") {
        for (const QString &set : state.fileSets)
            state.disk.addFolder(state.workingFolder + u'/' + set);
        return ok(u"Successfully assigned physical working folder to active design."_s);
    }
    return state.usage({}, u"design"_s);
}

ModelAnswer ModelDesign::setAttribute(const QStringList &words)
{
    const QString what = words[2];
    const QString text = words[3];
    const std::optional<bool> truth = vocabulary::truthOf(text);
    if (what == u"name" && (state.readOnly || !vocabulary::names.first(3).contains(text))
        && text != state.texts[what])
        return {TCL_ERROR, {}, true};
    if (what == u"read_only" && !truth)
        return error(u"New read only state's value is specified using \"true\" or \"false\" "
                     "(Case Insensitive)"_s);
    if (what == u"busy" && !truth)
        return error(u"New busy state's value is specified using \"true\" or \"false\" "
                     "(Case Insensitive)"_s);
    if (what == u"read_only")
        state.readOnly = *truth;
    else if (what == u"busy")
        state.busy = *truth;
    else if (!state.readOnly && isKept(text))
        state.texts[what] = text;
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
                state.texts[u"name"_s], shown(state.files), shown(state.folders),
                shown(state.properties), QCoreApplication::applicationDirPath()),
            true};
}

QList<QStringList> ModelDesign::questions() const
{
    QList<QStringList> all {{u"overview"_s}};
    for (const QString &name : {u"name"_s, u"description"_s, u"id"_s, u"vendor"_s, u"library"_s,
                                u"author"_s, u"version"_s, u"wfp"_s, u"busy"_s, u"read_only"_s})
        all.append({u"design"_s, u"get"_s, name});
    for (const ModelKind *kind : {&state.files, &state.folders, &state.properties}) {
        all.append({kind->plural, u"list"_s});
        for (const ModelItem &item : kind->items)
            all.append({kind->plural, u"category"_s, item.key});
    }
    for (const QString &node : vocabulary::nodes)
        all.append({state.files.plural, u"list"_s, node});
    return all;
}
