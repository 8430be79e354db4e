#include "tests/commands/random/ModelItemCalls.h"

#include "tests/commands/random/vocabulary.h"

#include <tcl.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QString readOnlyText(const QString &name)
{
    return u"Active design property \"%1\" is read only, you cannot modify it"_s.arg(name);
}

} // namespace

ModelAnswer ModelItemCalls::answer(ModelKind &kind, const QStringList &words)
{
    ModelItem *item = kind.find(kind.active);
    const QString name = state.texts[u"name"_s];
    if (!item || kind.active.isEmpty())
        return {TCL_ERROR, u"No active %1 in design \"%2\""_s.arg(kind.word, name)};
    const QString title = &kind == &state.files ? item->key.section(u'/', -1) : item->key;
    const ModelAnswer unknown =
        state.usage(u"%1 \"%2\" in "_s.arg(kind.word, title), words.first());
    const QString what = words.value(1);
    if (what == u"set" && !state.isPath(kind) && state.readOnly)
        return {TCL_ERROR, readOnlyText(item->key)};
    if (what == u"get" && words.size() > 2)
        return getItem(kind, *item, words[2]);
    if (what == u"set" && words.size() > 3)
        return setItem(kind, *item, words);
    if (what == u"property" && words.size() > 3)
        return shared(kind, *item, words);
    if (what == u"exists" && words.size() == 2 && state.isPath(kind)) {
        const bool exists =
            &kind == &state.files ? state.disk.isFile(item->key) : state.disk.isFolder(item->key);
        return {exists || &kind == &state.files ? TCL_OK : TCL_ERROR,
                exists ? u"true"_s : u"false"_s};
    }
    if (what == u"open" && words.size() == 2 && &kind == &state.files)
        return {TCL_ERROR, u"false"_s};
    return unknown;
}

ModelAnswer ModelItemCalls::getItem(const ModelKind &kind, const ModelItem &item,
                                    const QString &what) const
{
    if (what == u"category")
        return {TCL_OK, state.categoryOf(item)};
    if (what == u"revision" && state.isPath(kind))
        return {TCL_OK, u"-1"_s};
    if (what == u"vcs" && state.isPath(kind))
        return {TCL_OK, {}};
    return {TCL_OK, item.key};
}

ModelAnswer ModelItemCalls::setItem(ModelKind &kind, ModelItem &item, const QStringList &words)
{
    const QString before = item.key;
    const QString word = words[3];
    if (words[2] == u"category") {
        const bool set = !state.readOnly && vocabulary::isKept(word);
        if (set)
            item.category = vocabulary::categoryOf(word);
        return ModelAnswer::either(
            set, u"Successfully changed category on %1 \"%2\""_s.arg(kind.word, before),
            u"Failed to change category on %1 \"%2\""_s.arg(kind.word, before));
    }
    if (state.addRefusal(kind, word).isEmpty()) {
        item.key = state.keyOf(kind, word);
        kind.active = item.key;
    }
    return {TCL_OK,
            (state.isPath(kind)
                 ? u"Requested actual %1 path change on %1 \"%2\". Changed to \"%3\""_s
                 : u"Successfully renamed %1 \"%2\". Changed to \"%3\""_s)
                .arg(kind.word, before, item.key)};
}

ModelAnswer ModelItemCalls::shared(const ModelKind &kind, ModelItem &item, const QStringList &words)
{
    const QString what = words[2];
    const QString name = words[3];
    const bool exists = item.shared.contains(name);
    const QString about = u"property \"%1\" on %2 \"%3\""_s.arg(name, kind.sharedOf, item.key);
    if (what == u"exists")
        return ModelAnswer::either(exists, u"true"_s, u"false"_s);
    if (!state.isPath(kind) && state.readOnly && (what == u"set" || what == u"remove"))
        return {TCL_ERROR, readOnlyText(item.key)};
    if (what == u"set")
        return setShared(about, item, words);
    if (!exists)
        return {TCL_ERROR, u"Failed to %1 %2. It does not exist"_s.arg(what, about)};
    if (what == u"get")
        return {TCL_OK, item.shared[name].toString()};
    // The answer is the same when the design is read-only and keeps it.
    if (!state.readOnly)
        item.shared.remove(name);
    return {TCL_OK, u"Successfully removed "_s + about};
}

ModelAnswer ModelItemCalls::setShared(const QString &about, ModelItem &item,
                                      const QStringList &words)
{
    if (words.size() < 6)
        return {TCL_ERROR, u"You did not provide enough parameters to set "_s + about};
    if (words.size() == 7 && !vocabulary::truthOf(words[6]))
        return {TCL_ERROR,
                u"Making a property read only is specified using \"true\" or \"false\" (Case "
                "Insensitive)"_s};
    const QVariant value = vocabulary::valueOf(words[4], words[5]);
    if (!value.isValid())
        return {TCL_ERROR,
                u"Failed to set %1. Property type and value combination is invalid"_s.arg(about)};
    const QString name = words[3];
    const bool isName = !name.isEmpty() && vocabulary::isKept(name) && name != u"objectName";
    const bool isSame = item.shared.value(name) == value;
    const bool set = isName && (isSame || (!state.readOnly && vocabulary::isKept(words[5])));
    if (set)
        item.shared[name] = value;
    return ModelAnswer::either(set, u"Successfully set "_s + about, u"Failed to set "_s + about);
}
