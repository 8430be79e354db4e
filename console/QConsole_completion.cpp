#include "console/QConsole.h"

#include "console/OutputBurst.h"

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

void QConsole::handleTabKeyPress()
{
    if (!isSelectionInEditionZone())
        return;
    QString prefix;
    const QStringList candidates = suggestCommand(getCurrentCommand(), prefix);
    if (candidates.isEmpty())
        insertPlainText(u"\t"_s);
    else if (candidates.size() == 1)
        replaceCurrentCommand(prefix + candidates.constFirst());
    else
        listCandidates(candidates, prefix);
    ensureCursorVisible();
}

// Leaves what all candidates begin with behind a new prompt.
void QConsole::listCandidates(const QStringList &candidates, const QString &prefix)
{
    appendParagraph(candidates.join(u", "_s), format(completionColor));
    appendParagraph(QString(), format(cmdColor));
    burst->close();
    displayPrompt();
    insertPlainText(prefix + commonPrefix(candidates));
}
