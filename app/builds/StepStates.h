#pragma once

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/BuildMonitor.h>

#include <QHash>
#include <QObject>
#include <QPointer>

// How the steps of one build configuration are, in words by their names: those of the run that is
// under way, or was the last one.
class StepStates : public QObject
{
    Q_OBJECT

public:
    explicit StepStates(QObject *parent = nullptr);

    // Of which configuration; forgets those of another one.
    void follow(MorvalenCore::BuildConfiguration *configuration);

    const QHash<QString, QString> &words() const { return states; }

Q_SIGNALS:
    void changed();

private:
    using BuildConfiguration = MorvalenCore::BuildConfiguration;

    void begin(const BuildConfiguration *configuration);
    void showEnded(const BuildConfiguration *configuration, const QString &step);
    void showRunning(const BuildConfiguration *configuration,
                     const QList<MorvalenCore::RunningStep> &steps);
    void showResults(const BuildConfiguration *configuration, const QStringList &done,
                     const QStringList &failed);

    QPointer<BuildConfiguration> followed;
    QHash<QString, QString> states;
    QStringList running;
};
