#pragma once

#include "LogModel.h"
#include "LogView.h"

#include <Qtilities/LoggerEngine.h>

#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace Qtilities::CoreGui {

// A log with a bar to choose levels, search, copy and clear. It has an engine of its own in the
// log, which goes with the widget.
class LogWidget : public QWidget
{
    Q_OBJECT

public:
    // Milliseconds between two changes of the view, whatever arrives.
    static constexpr int refreshInterval = 50;
    // And between two counts of what is searched for.
    static constexpr int countInterval = 300;

    // Attaches an engine of the given name, which must not be taken; displays is a mask of
    // LoggerGui::Display.
    LogWidget(const QString &engineName, int displays, int messageTypes, QWidget *parent = nullptr);
    ~LogWidget() override;

    Logging::LoggerEngine *engine() const { return logEngine; }

    void append(int type, bool priority, const QString &text);
    void clear();

private:
    QWidget *createBar(int messageTypes);
    void addLevelButtons(QWidget *bar, int messageTypes);
    void addSearchField(QWidget *bar);
    void addSearchKeys();
    void refresh(bool now);
    void search(bool backwards);
    void searchTyped(const QString &text);
    void showDropped();
    void showCount();

    LogModel model;
    LogView *view;
    QLabel *droppedNote;
    QLineEdit *searchField = nullptr;
    QLabel *searchNote = nullptr;
    QLabel *countNote = nullptr;
    QTimer countTimer;
    QTimer refreshTimer;
    QElapsedTimer sinceRefresh;
    QPointer<Logging::LoggerEngine> logEngine;
};

} // namespace Qtilities::CoreGui
