#include "LineDelegate.h"

#include "LogModel.h"

#include <Qtilities/LogLinks.h>

#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>

namespace Qtilities::CoreGui {

namespace {

constexpr int markAlpha = 70;

QList<LogLink> linksIn(const QString &text)
{
    const LogLinks *links = LogLinks::instance();
    return links ? links->linksIn(text) : QList<LogLink>();
}

// What a style leaves free in front of the text of a cell.
int margin(const QStyleOptionViewItem &option)
{
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    return style->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) + 1;
}

struct Span
{
    int left;
    int right;
};

Span spanOf(qsizetype start, qsizetype length, const QStyleOptionViewItem &option,
            const QString &text)
{
    const int left = option.rect.left() + margin(option);
    const QFontMetrics &metrics = option.fontMetrics;
    return {left + metrics.horizontalAdvance(text.first(start)),
            left + metrics.horizontalAdvance(text.first(start + length))};
}

Span spanOf(const LogLink &link, const QStyleOptionViewItem &option, const QString &text)
{
    return spanOf(link.start, link.length, option, text);
}

} // namespace

void LineDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                         const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const QString text = index.data().toString();
    QStyleOptionViewItem shown = option;
    initStyleOption(&shown, index);
    const bool isSelected = shown.state & QStyle::State_Selected;
    if (index.column() == LogModel::TextColumn)
        paintMarks(painter, shown, text);
    for (const LogLink &link : linksIn(text)) {
        const Span span = spanOf(link, shown, text);
        painter->setPen(
            shown.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
        const int bottom = shown.rect.bottom();
        painter->drawLine(span.left, bottom, span.right, bottom);
    }
}

// A frame, which leaves the letters as they are on light and on dark.
void LineDelegate::paintMarks(QPainter *painter, const QStyleOptionViewItem &shown,
                              const QString &text) const
{
    if (marked.isEmpty() || !(shown.features & QStyleOptionViewItem::HasDisplay))
        return;
    painter->save();
    QColor ground = shown.palette.color(QPalette::Highlight);
    painter->setPen(ground);
    ground.setAlpha(markAlpha);
    painter->setBrush(ground);
    for (qsizetype at = text.indexOf(marked, 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(marked, at + marked.size(), Qt::CaseInsensitive)) {
        const Span span = spanOf(at, marked.size(), shown, text);
        painter->drawRect(span.left, shown.rect.top(), span.right - span.left,
                          shown.rect.height() - 1);
    }
    painter->restore();
}

QWidget *LineDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                    const QModelIndex &) const
{
    auto *const field = new QLineEdit(parent);
    field->setFrame(false);
    field->setReadOnly(true);
    return field;
}

qsizetype LineDelegate::linkAt(int x, const QStyleOptionViewItem &option, const QString &text)
{
    for (const LogLink &link : linksIn(text)) {
        const Span span = spanOf(link, option, text);
        if (x >= span.left && x < span.right)
            return link.start;
    }
    return -1;
}

} // namespace Qtilities::CoreGui
