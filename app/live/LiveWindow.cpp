#include "app/live/LiveWindow.h"

#include "app/live/passrules.h"
#include "app/messages/messages.h"
#include "console/QtclConsole.h"
#include "interp/ScriptRuns.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/BuildMonitor.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QTimer>

#include <algorithm>
#include <utility>

using MorvalenCore::BuildConfiguration;
using MorvalenCore::BuildMonitor;
using namespace Qt::Literals::StringLiterals;

LiveWindow::LiveWindow(QMainWindow *mainWindow) : QObject(mainWindow), window(mainWindow)
{
    const ScriptRuns *runs = ScriptRuns::instance();
    if (!runs)
        return;
    connect(runs, &ScriptRuns::begun, this, &LiveWindow::begin);
    connect(runs, &ScriptRuns::ended, this, &LiveWindow::end);
    connect(runs, &ScriptRuns::stopping, this, &LiveWindow::cancelBuildsOfScript);
}

// The second time for what the first has brought, as a repaint after a click.
void LiveWindow::pass()
{
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

void LiveWindow::begin()
{
    buildsBefore.clear();
    for (BuildConfiguration *configuration : BuildMonitor::instance()->running())
        buildsBefore.append(configuration);
    qApp->installEventFilter(this);
}

QString LiveWindow::refusal() { return tr("A script is running. Stop it first, with Escape."); }

void LiveWindow::end()
{
    qApp->removeEventFilter(this);
    if (window->statusBar()->currentMessage() == refusal())
        window->statusBar()->clearMessage();
    // A script that ends before the question is answered is in the way of leaving no more.
    if (QMessageBox *box = question()) {
        leaves = true;
        box->close();
    }
    if (std::exchange(leaves, false))
        QTimer::singleShot(0, window, &QWidget::close);
}

// Those that the script waits for; a build that was there before goes on.
void LiveWindow::cancelBuildsOfScript()
{
    for (BuildConfiguration *configuration : BuildMonitor::instance()->running()) {
        if (!buildsBefore.contains(configuration))
            configuration->cancel();
    }
}

bool LiveWindow::eventFilter(QObject *receiver, QEvent *event)
{
    if (isStopKey(receiver, *event)) {
        ScriptRuns::instance()->stop();
        return true;
    }
    if (!ScriptRuns::instance()->isInPass())
        return false;
    if (isEnd(receiver, *event)) {
        event->ignore();
        askToLeave();
        return true;
    }
    // What a menu says of its entries has no end that would take the reason of a refusal away.
    if (event->type() == QEvent::StatusTip)
        return static_cast<QStatusTipEvent *>(event)->tip().isEmpty();
    const passrules::Verdict verdict = passrules::verdict(receiver, *event);
    if (verdict == passrules::Verdict::Deliver)
        return false;
    if (verdict == passrules::Verdict::Refuse)
        messages::tell(refusal());
    // An accepted drag would be one that may be dropped.
    event->setAccepted(event->type() != QEvent::DragEnter && event->type() != QEvent::Drop);
    return true;
}

// The user closes the window, or the desktop wants the program to end.
bool LiveWindow::isEnd(const QObject *receiver, const QEvent &event) const
{
    return (event.type() == QEvent::Close && receiver == window)
        || (event.type() == QEvent::Quit && receiver == qApp);
}

// A dialog, a menu, a popup or the strip of a search takes its Escape itself.
bool LiveWindow::isStopKey(const QObject *receiver, const QEvent &event) const
{
    const auto *widget = qobject_cast<const QWidget *>(receiver);
    if (event.type() != QEvent::KeyPress || !widget || widget->window() != window
        || QApplication::activePopupWidget() || QApplication::activeModalWidget()
        || passrules::isWithin(widget, "SearchStrip"))
        return false;
    const auto &key = static_cast<const QKeyEvent &>(event);
    if (key.key() == Qt::Key_Escape && key.modifiers() == Qt::NoModifier)
        return true;
    const auto *console = qobject_cast<const QtclConsole *>(widget);
    return console && key.key() == Qt::Key_C && key.modifiers() == Qt::ControlModifier
        && !console->textCursor().hasSelection();
}

QMessageBox *LiveWindow::question() const
{
    const auto boxes = window->findChildren<QMessageBox *>(u"stopAndLeave"_s);
    const auto shown = std::find_if(boxes.begin(), boxes.end(),
                                    [](const QMessageBox *box) { return box->isVisible(); });
    return shown == boxes.end() ? nullptr : *shown;
}

void LiveWindow::askToLeave()
{
    if (question())
        return;
    auto *box = new QMessageBox(QMessageBox::Question, tr("Leave Morvalen"),
                                tr("A script is running."), QMessageBox::Cancel, window);
    box->setObjectName(u"stopAndLeave"_s);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(tr("It is stopped where it is before the window closes."));
    box->setDefaultButton(QMessageBox::Cancel);
    const auto *stop = box->addButton(tr("&Stop and Leave"), QMessageBox::DestructiveRole);
    connect(stop, &QAbstractButton::clicked, this, [this] {
        leaves = true;
        ScriptRuns::instance()->stop();
    });
    box->open();
}
