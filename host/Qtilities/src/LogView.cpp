#include "LogView.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace Qtilities::CoreGui {

namespace {

using namespace Qt::Literals::StringLiterals;

// Whether a text can hold characters that are wider than one column.
bool hasWideCharacters(const QString &text)
{
    return std::any_of(text.cbegin(), text.cend(),
                       [](QChar character) { return character.unicode() >= 0x1100; });
}

// Opens the text of a line to be read, and leaves it as it is.
class ReadingDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &,
                          const QModelIndex &) const override
    {
        auto *const field = new QLineEdit(parent);
        field->setFrame(false);
        field->setReadOnly(true);
        return field;
    }
    void setModelData(QWidget *, QAbstractItemModel *, const QModelIndex &) const override { }
};

} // namespace

LogView::LogView(LogModel *model, QWidget *parent) : QTableView(parent), log(model)
{
    setModel(model);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setItemDelegate(new ReadingDelegate(this));
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
    setColumnWidth(LogModel::LevelColumn, metrics.horizontalAdvance(u"Warning  "_s));
    connect(model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex &, int first, int last) { widenForRows(first, last); });
    connect(model, &QAbstractItemModel::rowsRemoved, this,
            [this](const QModelIndex &, int first, int last) { removedRows += last - first + 1; });
    connect(model, &QAbstractItemModel::modelReset, this, [this] {
        textWidth = 0;
        widenForRows(0, log->rowCount() - 1);
    });
    followPalette();
}

LogView::~LogView() = default;

void LogView::publish(bool now)
{
    QScrollBar *const bar = verticalScrollBar();
    const bool following = bar->value() == bar->maximum();
    const int shownFirst = bar->value();
    removedRows = 0;
    log->publish();
    if (following)
        scrollToBottom();
    else
        bar->setValue(shownFirst - removedRows);
    if (now && isVisible() && !viewport()->testAttribute(Qt::WA_WState_InPaintEvent))
        viewport()->repaint();
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
    if (event->matches(QKeySequence::Copy))
        copyLines(false);
    else
        QTableView::keyPressEvent(event);
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
