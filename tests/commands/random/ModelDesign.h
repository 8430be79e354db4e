#pragma once

#include "tests/commands/random/ModelState.h"

// What a new design of the structure Hardware should be, and answer, after any commands: the
// simplest thing that can know it. Words are of the vocabulary, and from any other word nothing is
// known. It answers a call and does what the call does.
class ModelDesign
{
public:
    // The design's name is "d"; designsFolder holds its working folder.
    explicit ModelDesign(const QString &designsFolder) : state(designsFolder) { }

    ModelAnswer answer(const QStringList &words);

    // What happens to the design and to the disk besides.
    void reopened();
    ModelDisk &disk() { return state.disk; }

    QString folder() const { return state.workingFolder; }
    QList<ModelPath> filePaths() const { return state.filePaths(); }
    QList<ModelPath> folderPaths() const { return state.folderPaths(); }
    // Calls that change nothing and together tell all there is to tell.
    QList<QStringList> questions() const;

private:
    ModelAnswer designAnswer(const QStringList &words);
    ModelAnswer setAttribute(const QStringList &words);
    QString attribute(const QString &name) const;
    ModelAnswer overviewAnswer() const;

    ModelState state;
};
