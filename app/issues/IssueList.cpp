#include "app/issues/IssueList.h"

#include <QTimer>

#include <algorithm>

void IssueList::add(const QString &key, const QString &title, const QList<Issue> &issues)
{
    if (issues.isEmpty())
        return;
    if (!find(key))
        all.append({key, title, {}});
    Source *source = find(key);
    const qsizetype room = std::max<qsizetype>(0, mostOfSource - source->issues.size());
    source->issues += issues.first(std::min(room, issues.size()));
    source->leftOut += std::max<qsizetype>(0, issues.size() - room);
    std::stable_sort(source->issues.begin(), source->issues.end(),
                     [](const Issue &a, const Issue &b) { return a.severity < b.severity; });
    tell();
}

void IssueList::dropStep(const QString &key, const QString &step)
{
    remove(key, [&step](const Issue &issue) { return issue.step == step; });
}

void IssueList::keepSteps(const QString &key, const QStringList &steps)
{
    remove(key, [&steps](const Issue &issue) { return !steps.contains(issue.step); });
}

void IssueList::drop(const QString &key)
{
    remove(key, [](const Issue &) { return true; });
}

void IssueList::clear()
{
    all.clear();
    tell();
}

IssueList::Source *IssueList::find(const QString &key)
{
    const auto found =
        std::find_if(all.begin(), all.end(), [&key](const Source &s) { return s.key == key; });
    return found == all.end() ? nullptr : &*found;
}

void IssueList::remove(const QString &key, const std::function<bool(const Issue &)> &goes)
{
    Source *source = find(key);
    if (!source)
        return;
    const qsizetype count = source->issues.removeIf(goes);
    if (source->issues.isEmpty())
        all.removeIf([&key](const Source &s) { return s.key == key; });
    else if (count == 0)
        return;
    tell();
}

void IssueList::tell()
{
    if (std::exchange(isTelling, true))
        return;
    QTimer::singleShot(0, this, [this] {
        isTelling = false;
        Q_EMIT changed();
    });
}
