#include "app/builds/BuildProgress.h"

#include "app/builds/runstates.h"
#include "app/drawing/actionicons.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/BuildMonitor.h>
#include <MorvalenCore/DesignManager.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::BuildMonitor;
using MorvalenCore::DesignManager;
using MorvalenCore::RunningStep;

namespace {

constexpr int usualEndTime = 8000;

// How much room the parts get, in characters.
constexpr int barCharacters = 24;
constexpr int stepCharacters = 32;

QString nameOfDesign(const BuildConfiguration *configuration)
{
    const DesignManager *manager = DesignManager::instance();
    const QStringList ids = manager->openDesignIds();
    for (const QString &id : ids) {
        const auto *design = manager->design(id);
        if (design
            && design->buildConfiguration(configuration->configurationName()) == configuration)
            return design->name();
    }
    return {};
}

QString titleOf(const BuildConfiguration *configuration)
{
    const QString design = nameOfDesign(configuration);
    const QString name = configuration->configurationName();
    return design.isEmpty() ? name : design + u": "_s + name;
}

} // namespace

BuildProgress::BuildProgress(QWidget *parent)
    : QWidget(parent),
      title(new QLabel(this)),
      bar(new QProgressBar(this)),
      step(new QLabel(this)),
      cancelButton(new QToolButton(this)),
      hiding(new QTimer(this))
{
    setObjectName(u"buildProgress"_s);
    layOut();
    hiding->setSingleShot(true);
    setEndTime(usualEndTime);
    hide();

    connect(cancelButton, &QToolButton::clicked, this, [this] {
        if (shown)
            shown->cancel();
    });
    connect(hiding, &QTimer::timeout, this, &QWidget::hide);
    const BuildMonitor *monitor = BuildMonitor::instance();
    connect(monitor, &BuildMonitor::started, this, &BuildProgress::begin);
    connect(monitor, &BuildMonitor::progressed, this, &BuildProgress::showProgress);
    connect(monitor, &BuildMonitor::stepsRun, this, &BuildProgress::showRunning);
    connect(monitor, &BuildMonitor::ended, this, &BuildProgress::end);
}

void BuildProgress::layOut()
{
    title->setObjectName(u"buildTitle"_s);
    title->setTextFormat(Qt::PlainText);
    step->setObjectName(u"buildStep"_s);
    step->setTextFormat(Qt::PlainText);
    bar->setFormat(tr("%v of %m"));
    bar->setAccessibleName(tr("Build steps done"));
    bar->setFixedWidth(fontMetrics().averageCharWidth() * barCharacters);
    cancelButton->setText(tr("Cancel"));
    cancelButton->setToolTip(tr("Cancel the build"));
    cancelButton->setIcon(actionicons::icon(ActionIcon::Stop));
    cancelButton->setAutoRaise(true);
    cancelButton->setFocusPolicy(Qt::TabFocus);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(title);
    layout->addWidget(bar);
    layout->addWidget(step);
    layout->addWidget(cancelButton);
}

void BuildProgress::setEndTime(int milliseconds) { hiding->setInterval(milliseconds); }

void BuildProgress::begin(BuildConfiguration *configuration)
{
    hiding->stop();
    counts.remove(configuration);
    turnTo(configuration);
    bar->show();
    cancelButton->show();
    setStep(QString());
    show();
}

void BuildProgress::turnTo(BuildConfiguration *configuration)
{
    shown = configuration;
    hasRunning = false;
    title->setText(titleOf(configuration));
    showCounts();
}

// Busy until the number of steps is known.
void BuildProgress::showCounts()
{
    const auto [done, total] = counts.value(shown);
    bar->setRange(0, total);
    bar->setValue(done);
}

void BuildProgress::showProgress(const BuildConfiguration *configuration, int done, int total)
{
    counts.insert(configuration, {done, total});
    if (configuration == shown)
        showCounts();
}

// Of builds that run as one, that one is shown of which something runs.
void BuildProgress::showRunning(BuildConfiguration *configuration, const QList<RunningStep> &steps)
{
    if (configuration != shown && !hasRunning && !steps.isEmpty())
        turnTo(configuration);
    if (configuration != shown)
        return;
    hasRunning = !steps.isEmpty();
    if (!hasRunning)
        return;
    QStringList texts;
    for (const RunningStep &running : steps)
        texts.append(tr("%1 (%2 s)").arg(running.name).arg(running.milliseconds / 1000));
    setStep(texts.join(u", "_s));
}

void BuildProgress::end(const BuildConfiguration *configuration)
{
    counts.remove(configuration);
    if (configuration != shown)
        return;
    const QList<BuildConfiguration *> running = BuildMonitor::instance()->running();
    if (!running.isEmpty()) {
        begin(running.last());
        return;
    }
    setStep(runstates::word(configuration->runState()));
    shown = nullptr;
    bar->hide();
    cancelButton->hide();
    hiding->start();
}

// One line, cut where it is too long; the tool tip has all of it.
void BuildProgress::setStep(const QString &name)
{
    step->setToolTip(name);
    step->setText(fontMetrics().elidedText(name.simplified(), Qt::ElideRight,
                                           fontMetrics().averageCharWidth() * stepCharacters));
}
