#include "console/Completion.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

QString commonPrefix(const QStringList &texts)
{
    QString common = texts.constFirst();
    for (const QString &text : texts) {
        const auto [inCommon, inText] =
            std::mismatch(common.cbegin(), common.cend(), text.cbegin(), text.cend());
        common.truncate(inCommon - common.cbegin());
    }
    return common;
}

} // namespace

Completion Completion::of(const QStringList &candidates, const QString &prefix)
{
    if (candidates.isEmpty())
        return {.kind = Tab, .text = u"\t"_s, .list = {}};
    if (candidates.size() == 1)
        return {.kind = Replacement, .text = prefix + candidates.constFirst(), .list = {}};
    return {
        .kind = List, .text = prefix + commonPrefix(candidates), .list = candidates.join(u", "_s)};
}
