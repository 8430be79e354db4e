#pragma once

#include "tests/fakes/Journal.h"

#include <MorvalenCore/DesignFile.h>

#include <QDynamicPropertyChangeEvent>

// A file that is on no disk and does as its public members say.
class FakeDesignFile : public MorvalenCore::DesignFile
{
public:
    FakeDesignFile(Journal &theJournal, const QString &thePath, const QString &theNode = {})
        : path(thePath),
          nodeName(theNode),
          journal(theJournal)
    {
    }

    QString actualPath() const override { return path; }
    QString fileName() const override { return path.section(u'/', -1); }
    void setActualPath(const QString &newPath) override
    {
        journal.perform(callText("file.setActualPath", {newPath}), [&] { path = newPath; });
    }
    Qtilities::Core::QtilitiesCategory category() const override { return levels; }
    bool setCategory(const Qtilities::Core::QtilitiesCategory &category) override
    {
        return journal.perform(
            callText("file.setCategory", {category.toString(QStringLiteral("/"))}),
            [&] { levels = category; });
    }
    QString node() const override { return nodeName; }
    QString generatedVersion() const override { return version; }
    bool existsOnDisk() const override { return onDisk; }
    bool removeFromComputer(bool permanently) override
    {
        return journal.perform(callText("file.removeFromComputer", {path, callWord(permanently)}),
                               [&] { onDisk = false; });
    }
    // For the window, which asks for the reason: the same calls.
    Qtilities::Core::Status trySetActualPath(const QString &newPath) override
    {
        setActualPath(newPath);
        return {};
    }
    Qtilities::Core::Status
    trySetCategory(const Qtilities::Core::QtilitiesCategory &category) override
    {
        return outcome(setCategory(category));
    }
    Qtilities::Core::Status tryRemoveFromComputer(bool permanently) override
    {
        return outcome(removeFromComputer(permanently));
    }
    QString versionControlRevision() const override { return revision; }
    QString versionControlSystemName() const override { return system; }

    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange) {
            const QByteArray name =
                static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName();
            journal.perform(callText("file.setProperty", {QString::fromUtf8(name)}));
        }
        return MorvalenCore::DesignFile::event(event);
    }

    QString path;
    QString nodeName;
    Qtilities::Core::QtilitiesCategory levels;
    QString version;
    QString revision = QStringLiteral("-1");
    QString system;
    bool onDisk = true;

private:
    static Qtilities::Core::Status outcome(bool done)
    {
        using Qtilities::Core::Status;
        return done ? Status() : Status::failed(QStringLiteral("It refuses that"));
    }

    Journal &journal;
};
