#include "app/editor/linediff.h"

#include <Qtilities/commonends.h>

#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace linediff {

namespace {

// Beyond so many differences the search for the fewest would take too long.
constexpr int mostDifferences = 1000;
// Lines around a difference that are shown.
constexpr qsizetype around = 3;

// The shortest way from one list of lines to the other, as E. W. Myers describes it: for each
// number of differences, how far each diagonal can be followed. The way is found from its end.
// libgit2 takes another one where there are several, so that users would see other lines for the
// same texts.
class ShortestWay
{
public:
    ShortestWay(const QStringList &theOld, const QStringList &theNow) : old(theOld), now(theNow) { }

    // The lines from the first to the last; empty when there are too many differences.
    QList<Line> lines()
    {
        for (int differences = 0; differences <= mostDifferences; ++differences) {
            if (follow(differences))
                return wayBack(differences);
        }
        return {};
    }

private:
    // How far the old lines are used up on a diagonal, which is their number minus that of the
    // new ones.
    int &reach(int diagonal) { return furthest[size_t(diagonal + mostDifferences + 1)]; }

    bool follow(int differences)
    {
        for (int diagonal = -differences; diagonal <= differences; diagonal += 2) {
            const bool down = diagonal == -differences
                || (diagonal != differences && reach(diagonal - 1) < reach(diagonal + 1));
            int x = down ? reach(diagonal + 1) : reach(diagonal - 1) + 1;
            while (x < old.size() && x - diagonal < now.size() && old[x] == now[x - diagonal])
                ++x;
            reach(diagonal) = x;
            if (x >= old.size() && x - diagonal >= now.size()) {
                trail.push_back(furthest);
                return true;
            }
        }
        trail.push_back(furthest);
        return false;
    }

    QList<Line> wayBack(int differences)
    {
        QList<Line> lines;
        int x = int(old.size());
        int y = int(now.size());
        for (; differences > 0; --differences) {
            furthest = trail[size_t(differences - 1)];
            const int diagonal = x - y;
            const bool down = diagonal == -differences
                || (diagonal != differences && reach(diagonal - 1) < reach(diagonal + 1));
            const int beforeX = reach(down ? diagonal + 1 : diagonal - 1);
            const int beforeY = beforeX - (down ? diagonal + 1 : diagonal - 1);
            const int changedX = down ? beforeX : beforeX + 1;
            for (; x > changedX; --x, --y)
                lines.prepend({Line::Same, old[x - 1]});
            lines.prepend(down ? Line {Line::Added, now[beforeY]}
                               : Line {Line::Removed, old[beforeX]});
            x = beforeX;
            y = beforeY;
        }
        for (; x > 0; --x)
            lines.prepend({Line::Same, old[x - 1]});
        return lines;
    }

    const QStringList &old;
    const QStringList &now;
    std::vector<int> furthest = std::vector<int>(2 * (mostDifferences + 1) + 1);
    std::vector<std::vector<int>> trail;
};

QList<Line> all(Line::Kind kind, const QStringList &texts)
{
    QList<Line> lines;
    for (const QString &text : texts)
        lines.append({kind, text});
    return lines;
}

} // namespace

QList<Line> compare(const QStringList &old, const QStringList &now)
{
    const auto [head, tail] = Qtilities::Core::commonEnds(old, now);
    const QStringList oldPart = old.sliced(head, old.size() - head - tail);
    const QStringList newPart = now.sliced(head, now.size() - head - tail);
    QList<Line> middle = ShortestWay(oldPart, newPart).lines();
    if (middle.isEmpty())
        middle = all(Line::Removed, oldPart) + all(Line::Added, newPart);
    return all(Line::Same, old.first(head)) + middle + all(Line::Same, old.last(tail));
}

QString text(const QStringList &old, const QStringList &now)
{
    const QList<Line> lines = compare(old, now);
    // How near the next or the last difference is, at least.
    QList<bool> shown(lines.size(), false);
    for (qsizetype index = 0; index < lines.size(); ++index) {
        if (lines[index].kind == Line::Same)
            continue;
        const qsizetype last = qMin(index + around, lines.size() - 1);
        for (qsizetype near = qMax<qsizetype>(index - around, 0); near <= last; ++near)
            shown[near] = true;
    }
    QString text;
    int oldLine = 1;
    int newLine = 1;
    for (qsizetype index = 0; index < lines.size(); ++index) {
        const Line &line = lines[index];
        if (shown[index]) {
            if (index == 0 || !shown[index - 1])
                text += u"@@ -%1 +%2 @@\n"_s.arg(oldLine).arg(newLine);
            text += u" -+"_s[line.kind] + line.text + u'\n';
        }
        oldLine += line.kind != Line::Added;
        newLine += line.kind != Line::Removed;
    }
    return text;
}

} // namespace linediff
