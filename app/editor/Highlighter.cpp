#include "app/editor/Highlighter.h"

#include "app/editor/shades.h"
#include "app/editor/SyntaxScan.h"

#include <QEvent>
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

} // namespace

Highlighter::Highlighter(const Syntax &theSyntax, QTextDocument *document, QWidget *theWidget)
    : QSyntaxHighlighter(document),
      syntax(theSyntax),
      widget(theWidget)
{
    widget->installEventFilter(this);
    takeColours();
}

void Highlighter::highlightBlock(const QString &text)
{
    const SyntaxScan scan(syntax, text, previousBlockState());
    for (const SyntaxScan::Piece &piece : scan.pieces())
        setFormat(piece.start, piece.length, formats[piece.style]);
    setCurrentBlockState(scan.state());
}

bool Highlighter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::PaletteChange) {
        takeColours();
        rehighlight();
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
