#pragma once

#include "tests/fakes/Journal.h"

#include <MorvalenCore/DesignFolder.h>

#include <QDynamicPropertyChangeEvent>

// A folder that is on no disk and does as its public members say.
class FakeDesignFolder : public MorvalenCore::DesignFolder
{
public:
    FakeDesignFolder(Journal &theJournal, const QString &thePath)
        : path(thePath),
          journal(theJournal)
    {
    }

    QString actualPath() const override { return path; }
    void setActualPath(const QString &newPath) override
    {
        journal.perform(callText("folder.setActualPath", {newPath}), [&] { path = newPath; });
    }
    Qtilities::Core::QtilitiesCategory category() const override { return levels; }
    bool setCategory(const Qtilities::Core::QtilitiesCategory &category) override
    {
        return journal.perform(
            callText("folder.setCategory", {category.toString(QStringLiteral("/"))}),
            [&] { levels = category; });
    }
    bool existsOnDisk() const override { return onDisk; }
    bool removeFromComputer(bool permanently) override
    {
        return journal.perform(callText("folder.removeFromComputer", {path, callWord(permanently)}),
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
            journal.perform(callText("folder.setProperty", {QString::fromUtf8(name)}));
        }
        return MorvalenCore::DesignFolder::event(event);
    }

    QString path;
    Qtilities::Core::QtilitiesCategory levels;
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
