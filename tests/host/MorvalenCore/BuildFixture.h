#pragma once

#include "build/BuildRun.h"
#include "build/shell.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

// A folder with files, a build configuration over it, and runs of that by the real Ninja.
class BuildFixture
{
public:
    using Kind = MorvalenCore::BuildRun::Kind;
    using Result = MorvalenCore::BuildRun::Result;

    BuildFixture()
    {
        using namespace Qt::Literals::StringLiterals;
        request.configuration = u"Test"_s;
        request.workingFolder = QDir(dir.path()).canonicalPath() + u"/work"_s;
        request.targetPath = u"out"_s;
        QDir().mkpath(request.workingFolder);
    }

    QString path(const QString &name) const { return request.workingFolder + u'/' + name; }

    void write(const QString &name, const QByteArray &content) const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(path(name)));
    }

    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }

    bool exists(const QString &name) const { return QFileInfo::exists(path(name)); }
    QDateTime stamp(const QString &name) const { return QFileInfo(path(name)).lastModified(); }

    void add(const QString &name, const QString &command, const QStringList &inputs,
             const QStringList &outputs)
    {
        request.steps.append({name, command, inputs, outputs});
    }

    // Makes a file newer than whatever was made so far.
    void touch(const QString &name) const
    {
        QFile file(path(name));
        const QDateTime later = QDateTime::currentDateTime().addSecs(2);
        if (!file.open(QIODevice::ReadWrite)
            || !file.setFileTime(later, QFileDevice::FileModificationTime))
            qFatal("cannot touch %s", qPrintable(path(name)));
    }

    // Runs what the request asks for now; see below for what it leaves behind.
    Result run(Kind kind = Kind::Outdated)
    {
        using namespace MorvalenCore;
        messages.clear();
        progress.clear();
        done.clear();
        failed.clear();
        const Qtilities::Core::Result<BuildPlan> made = makeBuildPlan(request);
        if (!made.isOk()) {
            messages.append(QStringLiteral("Plan: ") + made.status().text());
            return Result::Failed;
        }
        const BuildPlan &plan = made.value();
        BuildRun run(plan, NinjaFile(plan));
        run.setGraceTime(graceTime);
        run.setOptions(options);
        run.setPatience(patience);
        current = &run;
        QObject::connect(&run, &BuildRun::message, &run, [this](auto type, const QString &text) {
            messages.append(Qtilities::Logging::Logger::messageTypeName(type) + QStringLiteral(": ")
                            + text);
        });
        QObject::connect(
            &run, &BuildRun::progressed, &run, [this](int count, int total, const QString &label) {
                progress.append(QStringLiteral("%1/%2 %3").arg(count).arg(total).arg(label));
            });
        const Result result = run.run(kind);
        current = nullptr;
        for (const int step : run.doneSteps())
            done.append(plan.steps[step].label);
        for (const int step : run.failedSteps())
            failed.append(plan.steps[step].label);
        return result;
    }

    QTemporaryDir dir;
    MorvalenCore::BuildRequest request;
    int graceTime = 300;
    MorvalenCore::BuildRun::Options options;
    int patience = 600'000;

    MorvalenCore::BuildRun *current = nullptr;
    // Of the last run: "Type: text", "done/total label", and labels.
    QStringList messages;
    QStringList progress;
    QStringList done;
    QStringList failed;
};
