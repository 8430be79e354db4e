#include "app/editor/Highlighter.h"

#include "app/editor/shades.h"
#include "app/editor/SyntaxScan.h"

#include <QEvent>
#include <QTextBlock>
#include <QTimer>
#include <QWidget>

namespace {

struct Colour
{
    Syntax::Style style;
    QRgb onLight;
    QRgb onDark;
};

constexpr Colour colours[] = {
    {Syntax::Keyword, 0xFF00309C, 0xFF8AB4F8},   {Syntax::Comment, 0xFF5F6B63, 0xFF93A398},
    {Syntax::Text, 0xFFA31515, 0xFFF2A48A},      {Syntax::Number, 0xFF7A3E9D, 0xFFC8A6F0},
    {Syntax::Directive, 0xFF8A5A00, 0xFFE0B860}, {Syntax::Variable, 0xFF00695C, 0xFF6FD0C0},
    {Syntax::Tag, 0xFF00309C, 0xFF8AB4F8},
};

// A slice goes on for so long, but does so many blocks in any case.
constexpr int sliceMilliseconds = 10;
constexpr int sliceBlocks = 200;

// What a block that was never coloured has.
constexpr int noState = -1;

} // namespace

Highlighter::Highlighter(const Syntax &theSyntax, QTextDocument *document, QWidget *theWidget)
    : QSyntaxHighlighter(document),
      syntax(theSyntax),
      widget(theWidget),
      sliceTimer(new QTimer(this)),
      burstEnd(new QTimer(this))
{
    burstEnd->setSingleShot(true);
    widget->installEventFilter(this);
    takeColours();
    connect(sliceTimer, &QTimer::timeout, this, &Highlighter::continueSlice);
    // What waits can move up when something before it is removed.
    connect(document, &QTextDocument::contentsChange, this, [this](int position) {
        waiting = qMin(waiting, this->document()->findBlock(position).blockNumber());
    });
    start();
}

void Highlighter::highlightBlock(const QString &text)
{
    const int number = currentBlock().blockNumber();
    if (sliceTimer->isActive() && currentBlockState() == noState && number >= waiting)
        return;
    if (isLate()) {
        setCurrentBlockState(noState);
        waiting = qMin(waiting, number);
        sliceTimer->start(0);
        return;
    }
    const SyntaxScan scan(syntax, text, previousBlockState());
    for (const SyntaxScan::Piece &piece : scan.pieces())
        setFormat(piece.start, piece.length, formats[piece.style]);
    setCurrentBlockState(scan.state());
}

bool Highlighter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::PaletteChange) {
        takeColours();
        start();
    }
    return QSyntaxHighlighter::eventFilter(watched, event);
}

void Highlighter::takeColours()
{
    const bool dark = shades::isDark(widget->palette());
    formats = QList<QTextCharFormat>(Syntax::Tag + 1);
    for (const Colour &colour : colours)
        formats[colour.style].setForeground(QColor(dark ? colour.onDark : colour.onLight));
}

// The first slice is enough for most documents, which are never seen without colours.
void Highlighter::start()
{
    for (QTextBlock block = document()->firstBlock(); block.isValid(); block = block.next())
        block.setUserState(noState);
    waiting = 0;
    sliceTimer->start(0);
    continueSlice();
}

void Highlighter::continueSlice()
{
    QTextBlock block = document()->findBlockByNumber(waiting);
    for (; block.isValid() && !isLate(); block = block.next()) {
        waiting = block.blockNumber() + 1;
        if (block.userState() == noState)
            rehighlightBlock(block);
    }
    if (!block.isValid())
        sliceTimer->stop();
}

bool Highlighter::isLate()
{
    if (!burstEnd->isActive()) {
        burst.start();
        burstBlocks = 0;
        burstEnd->start(0);
    }
    return ++burstBlocks > sliceBlocks && burst.elapsed() >= sliceMilliseconds;
}
