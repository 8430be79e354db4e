#pragma once

#include <QObject>
#include <QRandomGenerator>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <vector>

struct Tcl_Interp;
class Story;

namespace MorvalenCore {
class AbstractScriptedAction;
}

// Lets anything arrive while anything else runs, at random: commands from timers, file events and
// idle handlers, scripted actions, commands for the console, dialogs, brackets and cancelled
// builds, each of which may start the next in whatever is running by then.
class RandomWalk : public QObject
{
    Q_OBJECT

public:
    RandomWalk(Story &theStory, quint32 seed);
    ~RandomWalk() override;

    // Takes so many steps. What is wrong when all has come to rest; empty when nothing is.
    QString go(int steps);

    int stepsTaken() const { return taken; }

private:
    static int step(void *self, Tcl_Interp *current, int, const char **);
    QByteArray nextScript();
    QByteArray designScript();
    QByteArray waitingScript();
    QByteArray arrival();
    void outside();
    void executeAction();
    void openDialog();
    void watch();
    QString settle();
    QString evaluate(const QByteArray &script, int *code) const;
    QByteArray one(const QList<QByteArray> &all) { return all[random.bounded(int(all.size()))]; }

    Story &story;
    Tcl_Interp *interp;
    QRandomGenerator random;
    std::vector<std::unique_ptr<MorvalenCore::AbstractScriptedAction>> actions;
    int taken = 0;
    int wanted = 0;
    int depth = 0;

    // Looks now and then whether the walk goes on.
    QTimer watching;
    int seen = -1;
    QString stuck;
};
