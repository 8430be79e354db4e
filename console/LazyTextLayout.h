#pragma once

#include <QAbstractTextDocumentLayout>
#include <QBasicTimer>
#include <QFont>

// The layout of a long text of plain paragraphs in one font, as a console shows it: hundreds of
// thousands of lines may come, go through another width or another font, and be scrolled through.
//
// Only paragraphs that are looked at are laid out. The height of any other one is known all the
// same: a paragraph of plain letters that is not wrapped is one line high, and one that was laid
// out once is as high as it was then. When the width or the font changes, the height of wrapped
// paragraphs is estimated until they are looked at, and the size of the document follows.
//
// The document itself adds the heights up: its tree of paragraphs keeps a number of lines for each,
// to find the first line of any and the paragraph of any line fast. One such line is one pixel
// here.
class LazyTextLayout : public QAbstractTextDocumentLayout
{
    Q_OBJECT
    Q_PROPERTY(int cursorWidth MEMBER cursorWidth)

public:
    explicit LazyTextLayout(QTextDocument *document);

    // The font that the text has. Heights follow at once; the formats are the caller's.
    void setFont(const QFont &font);

    void draw(QPainter *painter, const PaintContext &context) override;
    int hitTest(const QPointF &point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame *frame) const override;

    // Where a paragraph is. It is laid out for that, if it was not.
    QRectF blockBoundingRect(const QTextBlock &block) const override;

protected:
    void documentChanged(int from, int removed, int added) override;
    void timerEvent(QTimerEvent *event) override;

private:
    double textWidth() const;
    int textHeight() const;
    QTextBlock blockAt(double y) const;
    int lettersOfLine() const;
    int estimate(int length, int letters) const;
    bool isOnePlainLine(const QTextBlock &block) const;
    int layOut(const QTextBlock &block) const;
    void ensureLaidOut(const QTextBlock &block) const;
    void estimateAll();
    QTextBlock measure(QTextBlock block, int to);
    void announce(double fromY, double toY);
    void drawBlock(QPainter *painter, const PaintContext &context, const QTextBlock &block);

    QFont font;
    int lineHeight = 1; // of a paragraph of one line
    int linePitch = 1; // of each further one
    double letterWidth = 1;
    int cursorWidth = 1;
    int announcedHeight = -1;
    QBasicTimer staleness; // runs while a height that was thought wrong is not announced
};
