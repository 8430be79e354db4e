#include "LineDelegate.h"

#include <Qtilities/LogLinks.h>

#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>

namespace Qtilities::CoreGui {

namespace {

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

Span spanOf(const LogLink &link, const QStyleOptionViewItem &option, const QString &text)
{
    const int left = option.rect.left() + margin(option);
    const QFontMetrics &metrics = option.fontMetrics;
    return {left + metrics.horizontalAdvance(text.first(link.start)),
            left + metrics.horizontalAdvance(text.first(link.start + link.length))};
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
    for (const LogLink &link : linksIn(text)) {
        const Span span = spanOf(link, shown, text);
        painter->setPen(
            shown.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
        const int bottom = shown.rect.bottom();
        painter->drawLine(span.left, bottom, span.right, bottom);
    }
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
