#pragma once

#include <QElapsedTimer>
#include <QSyntaxHighlighter>
#include <QTextCharFormat>

struct Syntax;
class QTimer;
class QWidget;

// Colours a document by a syntax, for light and for dark palettes. A large document gets its
// colours from the top down, a slice at a time, while its user works on; so does what comes behind
// an edit that changes the meaning of the rest, such as the start of a comment.
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
    void start();
    void continueSlice();
    // Asked before each block that would be coloured.
    bool isLate();

    const Syntax &syntax;
    QWidget *widget;
    QList<QTextCharFormat> formats;
    QTimer *sliceTimer;
    // Runs since control left the event loop, and how often it was looked at since then.
    QElapsedTimer burst;
    int burstBlocks = 0;
    QTimer *burstEnd;
    // Blocks from this one on wait for their slice.
    int waiting = 0;
};
