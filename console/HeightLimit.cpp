#include "console/HeightLimit.h"

#include <QResizeEvent>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace {

// How much higher and wider than the font's own letters those of another script may be.
constexpr double reserve = 1.6;

// Looking at every paragraph takes a while; what comes so close to the limit is hidden at once.
constexpr double closeBy = 0.85;

} // namespace

// The height of a paragraph that nobody has laid out, rather too high than too low.
class HeightLimit::Guess
{
public:
    Guess(const QTextEdit *view, int width)
    {
        const QFontMetricsF metrics(view->currentFont());
        lineHeight = metrics.lineSpacing() * reserve;
        linesALetter = metrics.averageCharWidth() * reserve / std::max(width, 1);
    }
    double operator()(const QTextBlock &block) const
    {
        return lineHeight * std::floor(1 + block.length() * linesALetter);
    }

private:
    double lineHeight;
    double linesALetter;
};

HeightLimit::HeightLimit(QTextEdit *widget, const Heights &heights) : view(widget), limits(heights)
{
    // This signal comes before a change is laid out, the other one behind it.
    connect(view->document(), &QTextDocument::contentsChange, this, &HeightLimit::add);
    connect(view->document(), &QTextDocument::contentsChanged, this,
            [this] { keepBelow(limits.most); });
    view->viewport()->installEventFilter(this);
}

// A narrower text is a higher one. It has to be cut before the widget lays it out anew.
bool HeightLimit::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize) {
        const auto *resize = static_cast<QResizeEvent *>(event);
        const double before = std::max(1, resize->oldSize().width());
        const double ratio = before / std::max(1, resize->size().width());
        if (ratio > 1 && total * (ratio + 1) > limits.most)
            cut(Guess(view, resize->size().width()), true);
    }
    return QObject::eventFilter(watched, event);
}

void HeightLimit::add(int from, int, int added)
{
    const Guess guess(view, view->viewport()->width());
    QTextBlock block = view->document()->findBlock(from);
    for (; block.isValid() && block.position() <= from + added; block = block.next())
        total += guess(block);
    keepBelow(limits.never);
}

void HeightLimit::keepBelow(double height)
{
    if (total > height)
        cut(Guess(view, view->viewport()->width()), false);
}

// Looks at the paragraphs that show, and hides the oldest if there are too many.
void HeightLimit::cut(const Guess &guess, bool layoutIsOld)
{
    QTextBlock block = view->document()->lastBlock();
    QTextBlock firstKept = block;
    total = 0;
    for (; block.isValid() && block.isVisible(); block = block.previous()) {
        const QTextLayout *layout = block.layout();
        const bool isLaidOut = !layoutIsOld && layout->lineCount() > 0;
        total += isLaidOut ? layout->boundingRect().height() : guess(block);
        if (total <= limits.kept)
            firstKept = block;
    }
    if (total > limits.most * closeBy) {
        hideBefore(firstKept);
        total = limits.kept;
    }
}

void HeightLimit::hideBefore(const QTextBlock &firstKept)
{
    int from = firstKept.position();
    QTextBlock block = firstKept.previous();
    for (; block.isValid() && block.isVisible(); block = block.previous()) {
        block.setVisible(false);
        from = block.position();
    }
    view->document()->markContentsDirty(from, firstKept.position() - from);
}
