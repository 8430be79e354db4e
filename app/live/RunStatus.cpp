#include "app/live/RunStatus.h"

#include "app/drawing/actionicons.h"
#include "console/QtclConsole.h"
#include "interp/ScriptRuns.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

namespace {

// In milliseconds.
constexpr int noticeTime = 200;
constexpr int busyTime = 500;
constexpr int second = 1000;

constexpr qsizetype longest = 40; // characters of a command

QString shortened(const QString &command)
{
    const QString line = command.section(u'\n', 0, 0, QString::SectionSkipEmpty).trimmed();
    const bool isWhole = line.size() <= longest && line.size() == command.trimmed().size();
    return isWhole ? line : line.first(qMin(line.size(), longest)) + u'\u2026';
}

} // namespace

RunStatus::RunStatus(QWidget *parent)
    : QWidget(parent),
      label(new QLabel(this)),
      stopButton(new QToolButton(this))
{
    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(label);
    row->addWidget(stopButton);
    setObjectName(u"runStatus"_s);
    label->setObjectName(u"runText"_s);
    label->setTextFormat(Qt::PlainText);
    stopButton->setObjectName(u"stopScript"_s);
    stopButton->setText(tr("Stop"));
    stopButton->setIcon(actionicons::icon(ActionIcon::Stop));
    stopButton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    stopButton->setToolTip(tr("Stop what runs (Escape)"));
    hide();
    for (QTimer *timer : {&showTimer, &cursorTimer})
        timer->setSingleShot(true);
    connect(&showTimer, &QTimer::timeout, this, &RunStatus::show);
    connect(&cursorTimer, &QTimer::timeout, this, [this] { setBusyCursor(true); });
    connect(&clock, &QTimer::timeout, this, &RunStatus::update);
    ScriptRuns *runs = ScriptRuns::instance();
    if (!runs)
        return;
    connect(stopButton, &QToolButton::clicked, runs, &ScriptRuns::stop);
    connect(runs, &ScriptRuns::begun, this, &RunStatus::begin);
    connect(runs, &ScriptRuns::ended, this, &RunStatus::end);
}

void RunStatus::begin()
{
    showTimer.start(noticeTime);
    cursorTimer.start(busyTime);
}

void RunStatus::end()
{
    showTimer.stop();
    cursorTimer.stop();
    clock.stop();
    if (isHidden())
        return;
    hide();
    setBusyCursor(false);
}

void RunStatus::setBusyCursor(bool busy)
{
    if (const auto *console = window()->findChild<QtclConsole *>())
        console->viewport()->setCursor(busy ? Qt::BusyCursor : Qt::IBeamCursor);
}

void RunStatus::show()
{
    update();
    setVisible(true);
    clock.start(second);
}

void RunStatus::update()
{
    const ScriptRuns *runs = ScriptRuns::instance();
    const QString seconds = QString::number(runs->elapsed() / second);
    label->setText(runs->command().isEmpty()
                       ? tr("Running for %1 s: a Tcl event (Escape stops it)").arg(seconds)
                       : tr("Running for %1 s: %2 (Escape stops it)")
                             .arg(seconds, shortened(runs->command())));
}
