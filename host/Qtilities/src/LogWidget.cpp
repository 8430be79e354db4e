#include "LogWidget.h"

#include <Qtilities/Logger.h>
#include <Qtilities/LoggerGui.h>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

namespace Qtilities::CoreGui {

namespace {

using namespace Qt::Literals::StringLiterals;
using Logging::Logger;
using Logging::LoggerEngine;

// Hands the messages of the log to the widget that owns it.
class WidgetEngine : public LoggerEngine
{
public:
    WidgetEngine(const QString &name, LogWidget *widget) : LoggerEngine(name), target(widget) { }

    void logMessage(int type, const QString &text) override { target->append(type, false, text); }
    void logPriorityMessage(int type, const QString &text) override
    {
        target->append(type, true, text);
    }
    void clearLog() override { target->clear(); }

private:
    LogWidget *target;
};

// The levels that have a button, in its order.
constexpr Logger::MessageType levels[] = {Logger::Info,  Logger::Warning, Logger::Error,
                                          Logger::Fatal, Logger::Debug,   Logger::Trace};

} // namespace

LogWidget::LogWidget(const QString &engineName, int displays, int messageTypes, QWidget *parent)
    : QWidget(parent),
      view(new LogView(&model, this)),
      droppedNote(new QLabel(this))
{
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    if (displays & LoggerGui::ControlsDisplay)
        layout->addWidget(createBar(messageTypes));
    layout->addWidget(view);
    view->setAccessibleName(tr("Messages"));
    view->setVisible(displays & LoggerGui::MessagesDisplay);
    layout->addWidget(droppedNote);
    droppedNote->setObjectName(u"dropped"_s);
    droppedNote->setTextFormat(Qt::PlainText);
    droppedNote->hide();

    refreshTimer.setSingleShot(true);
    refreshTimer.setInterval(refreshInterval);
    connect(&refreshTimer, &QTimer::timeout, this, [this] { refresh(false); });
    connect(&model, &QAbstractItemModel::modelReset, this, &LogWidget::showDropped);
    sinceRefresh.start();

    logEngine = new WidgetEngine(engineName, this);
    logEngine->setMessageTypes(messageTypes);
    Logger::instance()->attachLoggerEngine(logEngine);
}

LogWidget::~LogWidget() { delete logEngine; }

QWidget *LogWidget::createBar(int messageTypes)
{
    auto *const bar = new QWidget(this);
    auto *const layout = new QHBoxLayout(bar);
    layout->setContentsMargins(4, 2, 4, 2);
    addLevelButtons(bar, messageTypes);
    addSearchField(bar);
    const auto addButton = [&](const QString &name, const QString &text, auto action) {
        auto *const button = new QToolButton(bar);
        button->setObjectName(name);
        button->setText(text);
        connect(button, &QToolButton::clicked, this, action);
        layout->addWidget(button);
    };
    addButton(u"copy"_s, tr("Copy"), [this] { view->copyLines(false); });
    addButton(u"clear"_s, tr("Clear"), [this] { clear(); });
    return bar;
}

void LogWidget::addLevelButtons(QWidget *bar, int messageTypes)
{
    for (const Logger::MessageType level : levels) {
        if (!(messageTypes & level))
            continue;
        auto *const button = new QToolButton(bar);
        button->setObjectName(Logger::messageTypeName(level));
        button->setText(LogModel::levelText(level));
        button->setToolTip(tr("Show messages of this level"));
        button->setCheckable(true);
        button->setChecked(true);
        connect(button, &QToolButton::toggled, this, [this, level](bool shown) {
            model.setShownTypes(shown ? model.shownTypes() | level : model.shownTypes() & ~level);
            view->scrollToBottom();
        });
        bar->layout()->addWidget(button);
    }
}

void LogWidget::addSearchField(QWidget *bar)
{
    searchField = new QLineEdit(bar);
    searchField->setObjectName(u"search"_s);
    searchField->setPlaceholderText(tr("Search"));
    searchField->setToolTip(tr("Return finds the next line, Shift+Return the one before"));
    searchField->setClearButtonEnabled(true);
    searchNote = new QLabel(bar);
    searchNote->setObjectName(u"found"_s);
    searchNote->setTextFormat(Qt::PlainText);
    bar->layout()->addWidget(searchField);
    bar->layout()->addWidget(searchNote);
    countNote = new QLabel(bar);
    countNote->setObjectName(u"count"_s);
    countNote->setTextFormat(Qt::PlainText);
    bar->layout()->addWidget(countNote);
    searchField->setAccessibleName(tr("Search the log"));
    countTimer.setSingleShot(true);
    countTimer.setInterval(countInterval);
    connect(&countTimer, &QTimer::timeout, this, &LogWidget::showCount);
    connect(searchField, &QLineEdit::textChanged, searchNote, &QLabel::clear);
    connect(searchField, &QLineEdit::textChanged, this, &LogWidget::searchTyped);
    const auto countSoon = [this] {
        if (!searchField->text().isEmpty() && !countTimer.isActive())
            countTimer.start();
    };
    connect(&model, &QAbstractItemModel::rowsInserted, this, countSoon);
    connect(&model, &QAbstractItemModel::modelReset, this, countSoon);
    addSearchKeys();
}

void LogWidget::addSearchKeys()
{
    const auto addKey = [this](const QKeySequence &key, QWidget *place, auto action) {
        auto *const shortcut = new QShortcut(key, place);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, action);
    };
    connect(searchField, &QLineEdit::returnPressed, this, [this] { search(false); });
    addKey(Qt::SHIFT | Qt::Key_Return, searchField, [this] { search(true); });
    addKey(QKeySequence::FindNext, this, [this] { search(false); });
    addKey(QKeySequence::FindPrevious, this, [this] { search(true); });
    addKey(QKeySequence::Find, this, [this] {
        searchField->setFocus();
        searchField->selectAll();
    });
}

void LogWidget::append(int type, bool priority, const QString &text)
{
    model.append(type, priority, text);
    // While a script runs, no timer fires.
    if (sinceRefresh.elapsed() >= refreshInterval)
        refresh(true);
    else if (!refreshTimer.isActive())
        refreshTimer.start();
}

void LogWidget::clear() { model.clear(); }

void LogWidget::refresh(bool now)
{
    refreshTimer.stop();
    view->publish(now);
    showDropped();
    sinceRefresh.start();
}

void LogWidget::search(bool backwards)
{
    refresh(false);
    const bool found =
        !searchField->text().isEmpty() && view->selectNext(searchField->text(), backwards);
    searchNote->setText(found || searchField->text().isEmpty() ? QString() : tr("Not found"));
    showCount();
}

// All matches are marked while the user types; Return selects one after the other.
void LogWidget::searchTyped(const QString &text)
{
    view->markAll(text);
    if (!text.isEmpty())
        view->showNext(text);
    showCount();
}

void LogWidget::showCount()
{
    const QString text = searchField->text();
    if (text.isEmpty())
        return countNote->clear();
    const int current = view->currentIndex().row();
    const int found = model.count(text);
    const bool isAtOne = current >= 0 && view->selectionModel()->isRowSelected(current)
        && model.find(text, current, false) == current;
    countNote->setText(isAtOne
                           ? tr("Line %L1 of %L2").arg(model.countUpTo(current, text)).arg(found)
                           : tr("Lines: %L1").arg(found));
}

void LogWidget::showDropped()
{
    if (model.droppedLines() > 0) {
        droppedNote->setText(tr("Only the newest lines are kept; older lines dropped: %L1")
                                 .arg(model.droppedLines()));
    }
    droppedNote->setVisible(model.droppedLines() > 0);
}

} // namespace Qtilities::CoreGui
