#pragma once

#include "app/journal/words.h"

#include <Qtilities/Descriptor.h>
#include <Qtilities/Status.h>

#include <QObject>
#include <QStringList>

class QConsole;

// What was done in this run as the commands that do it, in order: by mouse, menus and dialogs, and
// typed in the console. Running it again in another session makes the same designs and projects.
// What only looks is not in it; what no command can say stands in it as a comment. It is written to
// a file in the folder of logs as it grows. One per process, on the GUI thread.
class CommandJournal : public QObject
{
    Q_OBJECT

public:
    static CommandJournal *instance();

    // A command, and one about the active design, which is the one of this id; it has the other id
    // afterwards, if one is given.
    void add(const journal::Words &words);
    void addOn(const QString &designId, const journal::Words &words, const QString &newId = {});

    // Which design is active is not to be relied on, as after one has closed.
    void forgetActive();

    // What no command says.
    void remark(const QString &text);

    // A script is run by itself, on whatever is active. What the console is told to run until it
    // has ended is the script, which stands in the journal as the one command that runs it.
    void beginScript();
    void endScript(const QString &file);
    // The script was not run.
    void dropScript();

    // The console is about to run entries again with one command; they stand in its place.
    void standIn(const QString &command, const QStringList &entries);

    // Takes what the console runs, from now on.
    void follow(const QConsole *console);

    // Each a command with all its lines, or a comment.
    const QStringList &entries() const { return all; }
    QString text() const;

    // Writes from now on to a new file of the session. Until then nothing is written.
    void open();
    QString fileName() const { return path; }

    // Forgets everything, for another session.
    void clear();

Q_SIGNALS:
    void added(const QString &entry);
    void cleared();

private:
    CommandJournal() = default;
    void activate(const QString &designId);
    void append(const QString &entry);
    Qtilities::Core::Status writeMissing();
    void take(const QString &command);

    QStringList all;
    int scripts = 0;
    bool hasScriptSucceeded = false;
    QString standingFor;
    QStringList standIns;
    QString path;
    Qtilities::Core::Descriptor file;
    // How many entries are in the file, and their bytes.
    qsizetype written = 0;
    qint64 end = 0;
    bool isFailureTold = false;
    // The design that would be active if the entries were run; empty when that is not known.
    QString active;
    // The one that was active in the window when the last entry was made.
    QString expected;
};
