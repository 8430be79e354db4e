#include "app/find/LocatorModel.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int worst = 3;

// The smaller the better; the worst for what has not all words.
int rank(const LocatorModel::Entry &entry, const QString &text, const QStringList &words)
{
    if (entry.name.startsWith(text, Qt::CaseInsensitive))
        return 0;
    int best = 1;
    for (const QString &word : words) {
        if (entry.name.contains(word, Qt::CaseInsensitive))
            continue;
        if (!entry.details.contains(word, Qt::CaseInsensitive))
            return worst;
        best = 2;
    }
    return best;
}

QString wordFor(LocatorModel::Kind kind)
{
    switch (kind) {
    case LocatorModel::Design:
        return LocatorModel::tr("Design");
    case LocatorModel::Command:
        return LocatorModel::tr("Command");
    case LocatorModel::Script:
        return LocatorModel::tr("Script");
    case LocatorModel::Setting:
        return LocatorModel::tr("Setting");
    default:
        return LocatorModel::tr("File");
    }
}

} // namespace

void LocatorModel::setEntries(const QList<Entry> &entries)
{
    all = entries;
    filter(QString());
}

void LocatorModel::filter(const QString &text)
{
    const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
    QList<qsizetype> ranked[worst];
    for (qsizetype i = 0; i < all.size() && ranked[0].size() < mostRows; ++i) {
        const int place = rank(all[i], text.trimmed(), words);
        if (place < worst && ranked[place].size() < mostRows)
            ranked[place].append(i);
    }
    beginResetModel();
    rows = ranked[0] + ranked[1] + ranked[2];
    rows.resize(std::min(rows.size(), mostRows));
    endResetModel();
}

int LocatorModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(rows.size());
}

QVariant LocatorModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Entry &shown = entry(index.row());
    if (role == Qt::ToolTipRole)
        return shown.target;
    if (role != Qt::DisplayRole)
        return {};
    const QString name = u"%1 \u2013 %2"_s.arg(shown.name, wordFor(shown.kind));
    return shown.details.isEmpty() ? name : name + u" \u2013 "_s + shown.details;
}
