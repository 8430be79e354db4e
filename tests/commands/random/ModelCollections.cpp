#include "tests/commands/random/ModelCollections.h"

#include "tests/commands/random/vocabulary.h"

#include <QDir>

#include <tcl.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QString capital(const QString &word) { return word.first(1).toUpper() + word.sliced(1); }

} // namespace

ModelAnswer ModelCollections::answer(ModelKind &kind, const QStringList &words)
{
    const QString what = words.value(1);
    const QString word = words.value(2);
    const QString name = state.texts[u"name"_s];
    const bool isOne = words.size() > 2;
    if (what == u"set" && !state.isPath(kind))
        return setProperty(words);
    const qsizetype most = &kind == &state.files ? 3 : 2;
    if (what == u"remove_all" && words.size() <= most)
        return removeAll(kind, word);
    if (what == u"delete_all" && state.isPath(kind) && words.size() <= most)
        return eraseAll(kind, word);
    // Two nodes list everything.
    if (what == u"list" && (words.size() <= most || (&kind == &state.files && words.size() == 4)))
        return list(kind, words.size() == 3 ? word : QString());
    if (what == u"add" && isOne)
        return add(kind, word);
    const QStringList aboutOne {u"set_active"_s, u"contains"_s, u"category"_s, u"remove"_s,
                                state.isPath(kind) ? u"delete"_s : QString()};
    if (!isOne || !aboutOne.contains(what))
        return state.usage(kind.plural + u" in "_s, kind.plural);

    const ModelItem *item = kind.find(state.keyOf(kind, word));
    if (what == u"contains")
        return ModelAnswer::either(item, u"true"_s, u"false"_s);
    if (!item)
        return {TCL_ERROR,
                u"%1 \"%2\" does not match any %3 in design \"%4\""_s.arg(capital(kind.word), word,
                                                                          kind.plural, name)};
    if (what == u"category")
        return {TCL_OK, state.categoryOf(*item)};
    if (what == u"remove")
        return remove(kind, word);
    if (what == u"delete")
        return erase(kind, word);
    kind.active = item->key;
    return {
        TCL_OK,
        u"Successfully changed active %1 in design \"%2\" to \"%3\""_s.arg(kind.word, name, word)};
}

ModelAnswer ModelCollections::add(ModelKind &kind, const QString &word)
{
    const QString name = state.texts[u"name"_s];
    const QString refusal = state.addRefusal(kind, word);
    if (refusal.isEmpty()) {
        const ModelPath path = state.isPath(kind) ? state.pathOf(kind, word) : ModelPath();
        kind.items.append({state.keyOf(kind, word), path.node, path.category, {}});
    }
    return ModelAnswer::either(
        refusal.isEmpty(),
        u"Successfully added %1 \"%2\" to design \"%3\""_s.arg(kind.word, word, name),
        u"Failed to add %1 \"%2\" to design \"%3\": %4"_s.arg(kind.word, word, name, refusal));
}

ModelAnswer ModelCollections::remove(ModelKind &kind, const QString &word)
{
    if (!state.readOnly)
        kind.remove(state.keyOf(kind, word));
    const QString rest =
        u"%1 \"%2\" from design \"%3\""_s.arg(kind.word, word, state.texts[u"name"_s]);
    return ModelAnswer::either(!state.readOnly, u"Successfully removed "_s + rest,
                               u"Failed to remove "_s + rest + u": "_s);
}

bool ModelCollections::eraseFromDisk(const ModelKind &kind, const QString &key)
{
    return !state.readOnly
        && (&kind == &state.files ? state.disk.deleteFile(key) : state.disk.deleteFolder(key));
}

ModelAnswer ModelCollections::erase(ModelKind &kind, const QString &word)
{
    const QString name = state.texts[u"name"_s];
    const QString key = state.keyOf(kind, word);
    const bool erased = eraseFromDisk(kind, key);
    if (erased)
        kind.remove(key);
    return ModelAnswer::either(
        erased,
        u"Successfully deleted %1 \"%2\" and removed it from design \"%3\""_s.arg(kind.word, word,
                                                                                  name),
        u"Failed to delete physical %1 \"%2\". It will not be removed from design "
        "\"%3\": "_s.arg(kind.word, word, name));
}

QStringList ModelCollections::keysUnder(const ModelKind &kind, const QString &node) const
{
    QStringList keys;
    for (const ModelItem &item : state.inOrder(kind)) {
        const QString category = state.categoryOf(item);
        if (node.isEmpty()
            || (state.fileSets.contains(node)
                    ? item.node == node
                    : category == node || category.startsWith(node + u"::"_s)))
            keys.append(item.key);
    }
    return keys;
}

ModelAnswer ModelCollections::removeAll(ModelKind &kind, const QString &node)
{
    const QString name = state.texts[u"name"_s];
    const QStringList keys = keysUnder(kind, node);
    if (keys.isEmpty())
        return {TCL_ERROR,
                node.isEmpty()
                    ? u"No %1 found to remove from design \"%2\""_s.arg(kind.plural, name)
                    : u"No %1 found to remove under node \"%2\" in design \"%3\""_s.arg(
                        kind.plural, node, name)};
    const QString count = QString::number(keys.size());
    if (!state.readOnly) {
        for (const QString &key : keys)
            kind.remove(key);
    }
    return ModelAnswer::either(
        !state.readOnly,
        u"Successfully removed \"%1\" %2 from design \"%3\""_s.arg(count, kind.counted, name),
        u"Failed to remove needed %1. Only \"0\" of \"%2\" %3 were removed from design \"%4\": "_s
            .arg(kind.counted, count, kind.plural, name));
}

// For folders the number found stands where the design's name would.
ModelAnswer ModelCollections::eraseAll(ModelKind &kind, const QString &node)
{
    const QString name = state.texts[u"name"_s];
    const QStringList keys = keysUnder(kind, node);
    if (keys.isEmpty())
        return {TCL_ERROR,
                node.isEmpty() ? u"No %1 found to delete in design \"%2\""_s.arg(kind.plural, name)
                               : u"No %1 found to delete under node \"%2\" in design \"%3\""_s.arg(
                                   kind.plural, node, name)};
    qsizetype erased = 0;
    for (const QString &key : keys) {
        if (!eraseFromDisk(kind, key))
            continue;
        kind.remove(key);
        ++erased;
    }
    const QString count = QString::number(erased);
    const QString found = QString::number(keys.size());
    return ModelAnswer::either(
        erased == keys.size(),
        u"Successfully removed \"%1\" %2 from design \"%3\""_s.arg(count, kind.plural, name),
        u"Failed to delete needed %1. Only \"%2\" of \"%3\" %1 were deleted. Only these %1 were "
        "removed from design \"%4\": "_s.arg(kind.plural, count, found,
                                             &kind == &state.files ? name : found));
}

ModelAnswer ModelCollections::list(const ModelKind &kind, const QString &node) const
{
    const QString name = state.texts[u"name"_s];
    const QStringList keys = keysUnder(kind, node);
    if (!keys.isEmpty())
        return {TCL_OK, u'"' + keys.join(u"\" \""_s) + u'"'};
    if (node.isEmpty())
        return {&kind == &state.files ? TCL_OK : TCL_ERROR,
                u"No %1 found in design \"%2\""_s.arg(kind.plural, name)};
    return ModelAnswer::either(
        node == u"rtl" || node == u"documents",
        u"No files found under node \"%1\" in design \"%2\""_s.arg(node, name),
        u"Node \"%1\" does not exist in design \"%2\""_s.arg(node, name));
}

ModelAnswer ModelCollections::setProperty(const QStringList &words)
{
    const QString name = state.texts[u"name"_s];
    const QString word = words.value(2);
    if (words.size() < 5)
        return {TCL_ERROR,
                u"You did not provide enough parameters to set property \"%1\" on active design "
                "\"%2\""_s.arg(word, name)};
    if (words.size() == 6 && !vocabulary::truthOf(words[5]))
        return {TCL_ERROR,
                u"Making a property read only is specified using \"true\" or \"false\" (Case "
                "Insensitive)"_s};
    if (!vocabulary::valueOf(words[3], words[4]).isValid())
        return {TCL_ERROR,
                u"Failed to set property \"%1\" on design \"%2\". Property type and value "
                "combination is invalid"_s.arg(word, name)};
    if (state.properties.find(word))
        return {TCL_OK, u"Successfully updated property \"%1\" on design \"%2\""_s.arg(word, name)};
    QString refusal = state.addRefusal(state.properties, word);
    if (refusal.isEmpty() && !vocabulary::isKept(words[4]))
        refusal = state.addRefusal(state.properties, vocabulary::withZero);
    if (refusal.isEmpty())
        state.properties.items.append({word, {}, {}, {}});
    return ModelAnswer::either(
        refusal.isEmpty(), u"Successfully set property \"%1\" on design \"%2\""_s.arg(word, name),
        u"Failed to set property \"%1\" on design \"%2\": %3"_s.arg(word, name, refusal));
}
