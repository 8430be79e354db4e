#pragma once

#include <MorvalenCore/BuildMonitor.h>

#include <QHash>
#include <QPointer>
#include <QWidget>

class QLabel;
class QProgressBar;
class QTimer;
class QToolButton;

// Shows how a build is getting on: what is built, steps done of steps to do, the steps that run and
// for how long, and a button that cancels it. Afterwards it says for a while how the build has
// ended, and hides. Of several builds at once it shows the one that began last.
class BuildProgress : public QWidget
{
    Q_OBJECT

public:
    explicit BuildProgress(QWidget *parent = nullptr);

    // How long it says how a build has ended.
    void setEndTime(int milliseconds);

private:
    void layOut();
    void begin(MorvalenCore::BuildConfiguration *configuration);
    void turnTo(MorvalenCore::BuildConfiguration *configuration);
    void showCounts();
    void showProgress(const MorvalenCore::BuildConfiguration *configuration, int done, int total);
    void showRunning(MorvalenCore::BuildConfiguration *configuration,
                     const QList<MorvalenCore::RunningStep> &steps);
    void end(const MorvalenCore::BuildConfiguration *configuration);
    void setStep(const QString &step);

    QPointer<MorvalenCore::BuildConfiguration> shown;
    // Whether something of it runs, as far as that is known.
    bool hasRunning = false;
    // The steps done and to do of each build that runs.
    QHash<const MorvalenCore::BuildConfiguration *, std::pair<int, int>> counts;
    QLabel *title;
    QProgressBar *bar;
    QLabel *step;
    QToolButton *cancelButton;
    QTimer *hiding;
};
