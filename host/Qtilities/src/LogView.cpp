#include "LogView.h"

#include "LineDelegate.h"

#include <Qtilities/Logger.h>
#include <Qtilities/LogLinks.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>

namespace Qtilities::CoreGui {

namespace {

using namespace Qt::Literals::StringLiterals;
using Logging::Logger;

// Whether a text can hold characters that are wider than one column.
bool hasWideCharacters(const QString &text)
{
    return std::any_of(text.cbegin(), text.cend(),
                       [](QChar character) { return character.unicode() >= 0x1100; });
}

} // namespace

LogView::LogView(LogModel *model, QWidget *parent) : QTableView(parent), log(model)
{
    setModel(model);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setItemDelegate(new LineDelegate(this));
    setMouseTracking(true);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    horizontalHeader()->hide();
    verticalHeader()->hide();
    const QFontMetrics metrics = fontMetrics();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(metrics.lineSpacing() + 2);
    setColumnWidth(LogModel::TimeColumn, metrics.horizontalAdvance(u"00:00:00.000  "_s));
    setIconSize(QSize(metrics.ascent(), metrics.ascent()));
    setColumnWidth(LogModel::LevelColumn,
                   metrics.horizontalAdvance(LogModel::levelText(Logger::Warning) + u"  "_s)
                       + 2 * metrics.ascent());
    connect(model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex &, int first, int last) { widenForRows(first, last); });
    connect(model, &QAbstractItemModel::rowsRemoved, this,
            [this](const QModelIndex &, int first, int last) { removedRows += last - first + 1; });
    connect(model, &QAbstractItemModel::modelReset, this, [this] {
        textWidth = 0;
        widenForRows(0, log->rowCount() - 1);
    });
    followPalette();
    followEnd();
}

LogView::~LogView() = default;

void LogView::publish(bool now)
{
    QScrollBar *const bar = verticalScrollBar();
    const int shownFirst = bar->value();
    const bool following = isAtEnd;
    removedRows = 0;
    log->publish();
    isAtEnd = following;
    if (following)
        scrollToBottom();
    else
        bar->setValue(shownFirst - removedRows);
    if (now && isVisible() && !viewport()->testAttribute(Qt::WA_WState_InPaintEvent))
        viewport()->repaint();
}

// The range changes late, when the view is laid out, which it is not while nobody sees it.
void LogView::followEnd()
{
    QScrollBar *const bar = verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this, [this, bar](int value) {
        if (isVisible())
            isAtEnd = value == bar->maximum();
    });
    connect(bar, &QScrollBar::rangeChanged, this, [this, bar](int, int last) {
        if (isAtEnd)
            bar->setValue(last);
    });
}

void LogView::showEvent(QShowEvent *event)
{
    QTableView::showEvent(event);
    if (isAtEnd)
        scrollToBottom();
}

void LogView::markAll(const QString &text)
{
    static_cast<LineDelegate *>(itemDelegate())->setMarked(text);
    viewport()->update();
}

void LogView::showNext(const QString &text)
{
    const int row = log->find(text, qMax(currentIndex().row(), 0), false);
    if (row >= 0)
        scrollTo(log->index(row, LogModel::TextColumn));
}

void LogView::widenForRows(int first, int last)
{
    const QFontMetrics metrics = fontMetrics();
    const int column = metrics.averageCharWidth();
    for (int row = first; row <= last; ++row) {
        // Measuring every line would cost more than all the rest.
        const QString text = log->index(row, LogModel::TextColumn).data().toString();
        const qsizetype columns = text.size() * (hasWideCharacters(text) ? 2 : 1) + 2;
        if (columns * column > textWidth)
            textWidth = qMax(textWidth, metrics.horizontalAdvance(text) + 2 * column);
    }
    fitTextColumn();
}

// The text takes what the other columns leave, or more where a line needs it.
void LogView::fitTextColumn()
{
    const int others = columnWidth(LogModel::TimeColumn) + columnWidth(LogModel::LevelColumn);
    setColumnWidth(LogModel::TextColumn, qMax(textWidth, viewport()->width() - others));
}

void LogView::followPalette() { log->setOnDark(palette().color(QPalette::Base).lightness() < 128); }

void LogView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    fitTextColumn();
}

void LogView::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        followPalette();
}

bool LogView::selectNext(const QString &text, bool backwards)
{
    const int current = currentIndex().row();
    const int next = backwards ? qMax(current, 0) - 1 : current + 1;
    const int row = log->find(text, next, backwards);
    if (row < 0)
        return false;
    setCurrentIndex(log->index(row, LogModel::TextColumn));
    scrollTo(currentIndex());
    return true;
}

QList<int> LogView::chosenRows() const
{
    QList<int> rows;
    for (const QModelIndex &index : selectionModel()->selectedRows())
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    if (rows.isEmpty()) {
        for (int row = 0; row < log->rowCount(); ++row)
            rows.append(row);
    }
    return rows;
}

void LogView::copyLines(bool withTimeAndLevel) const
{
    QStringList texts;
    for (const int row : chosenRows()) {
        QString text = log->line(row).text;
        if (withTimeAndLevel) {
            text = log->index(row, LogModel::TimeColumn).data().toString() + u'\t'
                + log->index(row, LogModel::LevelColumn).data().toString() + u'\t' + text;
        }
        texts.append(text);
    }
    QGuiApplication::clipboard()->setText(texts.join(u'\n'));
}

void LogView::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->matches(QKeySequence::Copy))
        copyLines(false);
    else if (isReturn && state() != EditingState && currentIndex().isValid())
        followFirstLink();
    else
        QTableView::keyPressEvent(event);
}

LogView::Link LogView::linkAt(const QPoint &position) const
{
    const QModelIndex index = indexAt(position);
    if (!index.isValid() || index.column() != LogModel::TextColumn)
        return {};
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    const QString text = index.data().toString();
    return {index.row(), LineDelegate::linkAt(position.x(), option, text)};
}

void LogView::follow(const Link &link)
{
    const LogLine line = log->line(link.row);
    const QString text = log->index(link.row, LogModel::TextColumn).data().toString();
    LogLinks::instance()->follow(text, link.start, line.context);
}

void LogView::followFirstLink()
{
    const LogLinks *links = LogLinks::instance();
    const int row = currentIndex().row();
    const QString text = log->index(row, LogModel::TextColumn).data().toString();
    const QList<LogLink> found = links ? links->linksIn(text) : QList<LogLink>();
    if (!found.isEmpty())
        follow({row, found.first().start});
}

void LogView::mousePressEvent(QMouseEvent *event)
{
    pressed = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier
        ? linkAt(event->position().toPoint())
        : Link();
    QTableView::mousePressEvent(event);
}

// A link that was pressed and left again is none that was clicked.
void LogView::mouseReleaseEvent(QMouseEvent *event)
{
    QTableView::mouseReleaseEvent(event);
    const Link clicked = std::exchange(pressed, {});
    if (event->button() == Qt::LeftButton && clicked.start >= 0
        && clicked == linkAt(event->position().toPoint()))
        follow(clicked);
}

void LogView::mouseMoveEvent(QMouseEvent *event)
{
    QTableView::mouseMoveEvent(event);
    const bool isOver = linkAt(event->position().toPoint()).start >= 0;
    viewport()->setCursor(isOver ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void LogView::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu menu(this);
    menu.addAction(tr("&Copy"), this, [this] { copyLines(false); });
    menu.addAction(tr("Copy with &Time and Level"), this, [this] { copyLines(true); });
    menu.addAction(tr("Select &All"), this, [this] { selectAll(); });
    menu.addSeparator();
    menu.addAction(tr("C&lear"), log, &LogModel::clear);
    menu.exec(event->globalPos());
}

} // namespace Qtilities::CoreGui
