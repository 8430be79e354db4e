#pragma once

#include "build/BuildOutput.h"
#include "build/FolderLock.h"
#include "build/NinjaFile.h"
#include "build/NinjaProcess.h"
#include "build/RunningSteps.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

namespace MorvalenCore {

// Carries out one plan in its target folder: writes build.ninja there and runs Ninja. One object
// for one run; whoever runs it must keep it alive until that has ended.
class BuildRun : public QObject, public BuildListener
{
    Q_OBJECT

public:
    enum class Result { Completed, Failed, Cancelled };

    // Outdated runs what is outdated, All removes what the steps have made and runs all, Look
    // only says which steps are outdated.
    enum class Kind { Outdated, All, Look };

    // What came of it, and which steps of the plan were run and ended well (for Look: which are
    // outdated), and which failed.
    struct End
    {
        Result result = Result::Failed;
        QList<int> done;
        QList<int> failed;
        // Cancelled since another build failed.
        bool isCutShort = false;
    };

    // How Ninja is run, beyond its plan.
    struct Options
    {
        // Steps at the same time; nothing leaves it to Ninja.
        std::optional<int> jobs;
        // Whether steps that do not depend on a failed one still run.
        bool keepGoing = false;
        // A command in front of Ninja's; may be empty.
        QString allocation;
        // Stands in front of the steps' names in the log, among the lines of other runs.
        QString prefix {};
    };

    // The file is the plan's, made beforehand so that it can be kept between runs.
    BuildRun(const BuildPlan &aPlan, const NinjaFile &itsFile, QObject *parent = nullptr);
    ~BuildRun() override;

    // Goes on while events are served, and ends with ended(), perhaps before this returns. Refused
    // while another build uses the target folder.
    void start(Kind kind);
    bool hasEnded() const { return over.has_value(); }
    End endOfRun() const { return {over.value_or(Result::Failed), done, failed}; }

    // Returns when everything has ended; events are served meanwhile.
    Result run(Kind kind);

    // The run ends soon, as cancelled; nothing when there is none.
    void cancel();
    // The same at once, without serving events.
    void endNow();

    void setOptions(const Options &wanted) { options = wanted; }
    void setGraceTime(int milliseconds) { ninja.setGraceTime(milliseconds); }
    // How long an allocation may take before the log says that it is waited for.
    void setPatience(int milliseconds) { patience.setInterval(milliseconds); }

    // As in End.
    QList<int> doneSteps() const { return done; }
    QList<int> failedSteps() const { return failed; }

Q_SIGNALS:
    void ended();
    // How many of the outdated steps have ended, and the one that this is about.
    void progressed(int done, int total, const QString &step);
    // Which steps run now, told again and again while they do.
    void stepsRun(const QList<MorvalenCore::RunningSteps::Step> &steps);
    // For the log.
    void message(Qtilities::Logging::Logger::MessageType type, const QString &text);

protected:
    // What is done otherwise when several builds are run as one. First what must be there before
    // Ninja is asked: folders and files, and locks unless somebody only looks.
    virtual Qtilities::Core::Status prepare(bool onlyLooks);
    // Which file Ninja reads, as its arguments; nothing for build.ninja.
    virtual QStringList fileArguments() const { return {}; }
    virtual QList<BuildOutput::LogFile> logFiles() const;
    // Steps are about to be run, at most these.
    virtual void stepsBegin(const QList<int> &outdated) { Q_UNUSED(outdated) }
    // All is over and sorted; ends the run.
    virtual void conclude(const Qtilities::Core::Status &ninjasEnd);
    void stepShown(int step, int ended, int total) override;

    using Then = std::function<void(const Qtilities::Core::Status &)>;
    // Asks Ninja what it would run now.
    void look(const Then &then);
    // What the last answer was, or the steps that were run.
    QList<int> shownSteps() const { return output->shownSteps(); }
    bool isLooking() const { return looking; }

    const BuildPlan plan;

private:
    void line(MessageType type, const QString &text) override;
    void allocationCame() override;
    void tellWaiting();
    void tellRunning();
    void runOutdated();
    void runSteps();
    void takeStepsEnd(const Qtilities::Core::Status &status);
    void ask(const QStringList &arguments, const Then &then);
    void takeNinjasEnd(const Qtilities::Core::Status &status);
    void sortAndConclude(const Qtilities::Core::Status &ninjasEnd);
    void end(Result result);
    Result fail(const QString &text);
    Result resultOf(const Qtilities::Core::Status &ninjasEnd);
    void tellLeftBehind(const QList<ChildProcess> &processes);
    void sortOut(const Qtilities::Core::Status &ninjasEnd);

    const NinjaFile file;
    FolderLock lock;
    NinjaProcess ninja;
    Then next; // when Ninja has ended
    std::optional<Result> over;
    std::unique_ptr<BuildOutput> output;
    QList<int> done;
    QList<int> failed;
    bool looking = false;
    bool wasCancelled = false;
    Options options;
    QTimer patience;
    RunningSteps running {plan};
    QTimer looks;
    bool hasWaited = false;
    bool hasCome = false;
};

} // namespace MorvalenCore
