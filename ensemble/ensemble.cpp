#include "ensemble/ensemble.h"

#include "ensemble/Call.h"
#include "ensemble/places.h"
#include "ensemble/subcommands.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace ensemble {

namespace {

using Words = std::span<Tcl_Obj *const>;

Answer misunderstood(const QString &text) { return Answer::failure(kind::usage, text); }

Answer unknownWord(Rows rows, const QString &prefix, const QString &word)
{
    return misunderstood(
        u"unknown subcommand \"%1 %2\": must be %3"_s.arg(prefix, word, choices(wordsOf(rows))));
}

Answer missingWord(Rows rows, const QString &prefix)
{
    return misunderstood(
        u"wrong # args: should be \"%1 subcommand ?arg ...?\": subcommand must be %2"_s.arg(
            prefix, choices(wordsOf(rows))));
}

// prefix is what stands in front of the words.
Answer dispatch(Rows rows, const QString &prefix, Words words)
{
    if (words.empty())
        return missingWord(rows, prefix);
    const QString word = Value(words.front()).text();
    const auto row = std::find_if(rows.begin(), rows.end(), [&word](const Row &candidate) {
        return word == QLatin1StringView(candidate.word);
    });
    if (row == rows.end())
        return unknownWord(rows, prefix, word);
    words = words.subspan(1);
    if (row->items)
        return dispatch(*row->items, prefix + u' ' + word, words);
    const auto call = Call::parse(*row, prefix, words);
    return call.isOk() ? row->step(call.value()) : misunderstood(call.status().text());
}

int callMorvalen(ClientData, Tcl_Interp *interp, int count, Tcl_Obj *const *words)
{
    const Words all(words, std::size_t(count));
    return dispatch(subcommands(), QLatin1StringView(commandWord), all.subspan(1)).report(interp);
}

} // namespace

void create(Tcl_Interp *interp, const QString &folderOfCall)
{
    setFolderOfCall(folderOfCall);
    Tcl_CreateObjCommand(interp, commandWord, callMorvalen, nullptr, nullptr);
}

} // namespace ensemble
