#pragma once

#include "configurations/ConfigurationRunner.h"

#include <QEventLoop>
#include <QObject>

#include <map>
#include <memory>

namespace MorvalenCore {

// Builds configurations of several designs in runs of their own, each with its own allocation, a
// number of them at the same time.
class SpreadBuild : public QObject
{
    Q_OBJECT

public:
    SpreadBuild(const QList<ConfigurationItem *> &configurations, const BuildOptions &buildOptions);
    ~SpreadBuild() override;

    // Returns when all have ended, and whether all ended well; the log says how each did. Behind
    // one that fails no other is begun, unless the options say to keep going; behind one that is
    // cancelled none is.
    bool run();

private:
    void beginMore();
    void begin(ConfigurationItem &item);
    void take(BuildRun *run);
    void count(const Qtilities::Core::Status &status);
    void endAll();

    struct Running
    {
        std::unique_ptr<BuildRun> run;
        ConfigurationRunner::UnderWay underWay;
    };

    QList<QPointer<ConfigurationItem>> waiting;
    std::map<BuildRun *, Running> running;
    const BuildOptions options;
    QEventLoop loop;
    bool goesOn = true;
    bool allWell = true;
};

} // namespace MorvalenCore
