#pragma once

#include "build/BuildOutput.h"
#include "build/NinjaFile.h"
#include "build/NinjaProcess.h"

#include <QTimer>

#include <memory>
#include <optional>

namespace MorvalenCore {

// Carries out one plan in its target folder: writes build.ninja there and runs Ninja. One object
// for one run; whoever runs it must keep it alive until run() has returned.
class BuildRun : public QObject, public BuildListener
{
    Q_OBJECT

public:
    enum class Result { Completed, Failed, Cancelled };

    // Outdated runs what is outdated, All removes what the steps have made and runs all, Look
    // only says which steps are outdated.
    enum class Kind { Outdated, All, Look };

    // How Ninja is run, beyond its plan.
    struct Options
    {
        // Steps at the same time; nothing leaves it to Ninja.
        std::optional<int> jobs;
        // Whether steps that do not depend on a failed one still run.
        bool keepGoing = false;
        // A command in front of Ninja's; may be empty.
        QString allocation;
    };

    // The file is the plan's, made beforehand so that it can be kept between runs.
    BuildRun(const BuildPlan &aPlan, const NinjaFile &itsFile, QObject *parent = nullptr);
    ~BuildRun() override;

    // Returns when everything has ended; events are served meanwhile. Refused while another build
    // uses the target folder.
    Result run(Kind kind);

    // The run ends soon, as cancelled; nothing when there is none.
    void cancel();
    // The same at once, without serving events.
    void endNow();

    void setOptions(const Options &wanted) { options = wanted; }
    void setGraceTime(int milliseconds) { ninja.setGraceTime(milliseconds); }
    // How long an allocation may take before the log says that it is waited for.
    void setPatience(int milliseconds) { patience.setInterval(milliseconds); }

    // Which steps of the plan were run and ended well (for Look: which are outdated), and which
    // failed.
    QList<int> doneSteps() const { return done; }
    QList<int> failedSteps() const { return failed; }

Q_SIGNALS:
    // How many of the outdated steps have ended, and the one that this is about.
    void progressed(int done, int total, const QString &step);
    // For the log.
    void message(Qtilities::Logging::Logger::MessageType type, const QString &text);

private:
    void stepShown(int step, int ended, int total) override;
    void line(MessageType type, const QString &text) override;
    void allocationCame() override;
    void tellWaiting();
    Qtilities::Core::Status runSteps();
    Qtilities::Core::Status askNinja(const QStringList &arguments);
    bool isUpToDate(Qtilities::Core::Status *ninjasEnd);
    Result fail(const QString &text);
    Result resultOf(const Qtilities::Core::Status &ninjasEnd);
    void tellLeftBehind(const QList<ChildProcess> &processes);
    void sortOut(const Qtilities::Core::Status &ninjasEnd);

    const BuildPlan plan;
    const NinjaFile file;
    NinjaProcess ninja;
    std::unique_ptr<BuildOutput> output;
    QList<int> done;
    QList<int> failed;
    bool looking = false;
    bool wasCancelled = false;
    Options options;
    QTimer patience;
    bool hasWaited = false;
    bool hasCome = false;
};

} // namespace MorvalenCore
