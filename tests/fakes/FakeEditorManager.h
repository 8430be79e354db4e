#pragma once

#include "tests/fakes/Journal.h"

#include <MorvalenCore/EditorManager.h>

#include <QWidget>

// An editor manager with one editor for everything.
class FakeEditorManager : public MorvalenCore::EditorManager
{
public:
    explicit FakeEditorManager(Journal &theJournal) : journal(theJournal) { }

    QWidget *createEditorForPath(const QString &path, QString *error, const QString &mode,
                                 bool bringUp, bool readOnly) override
    {
        const QString errorWord = error ? QStringLiteral("error") : QStringLiteral("null");
        const bool opened = journal.perform(
            callText("editors.createEditorForPath",
                     {path, errorWord, mode, callWord(bringUp), callWord(readOnly)}));
        return opened ? &editor : nullptr;
    }

private:
    QWidget editor;
    Journal &journal;
};
