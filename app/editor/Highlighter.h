#pragma once

#include <QSyntaxHighlighter>
#include <QTextCharFormat>

struct Syntax;
class QWidget;

// Colours a document by a syntax, for light and for dark palettes.
class Highlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    // The colours are those for the palette of a widget, which is followed.
    Highlighter(const Syntax &syntax, QTextDocument *document, QWidget *widget);

protected:
    void highlightBlock(const QString &text) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void takeColours();

    const Syntax &syntax;
    QWidget *widget;
    QList<QTextCharFormat> formats;
};
