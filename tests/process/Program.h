#pragma once

#include <QByteArray>
#include <QDebug>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

// What a run of the program left: its exit status, or -1 for a crash or a run that never ended,
// and what it wrote.
struct Ended
{
    int status = -1;
    QByteArray out;
    QByteArray err;

    bool operator==(const Ended &) const = default;
};

// For the messages of QCOMPARE.
char *toString(const Ended &ended);

// Runs the program in a process of its own, without a display, with a home and a session that are
// nobody's.
class Program
{
public:
    Program();

    // A path in a temporary folder that goes with the object.
    QString path(const QString &name) const { return folder.filePath(name); }

    // Writes a file below path() and returns its path.
    QString write(const QString &name, const QByteArray &bytes) const;
    static QByteArray read(const QString &path);

    // Runs with --session in front of the words.
    Ended run(const QStringList &words, const QByteArray &input = {}) const;
    Ended runScript(const QByteArray &script, const QStringList &arguments = {}) const;
    Ended runCommands(const QStringList &commands) const;

    // Runs with the words alone, or a shell command in which $0 is the program and $1, $2 ... are
    // the words.
    Ended runBare(const QStringList &words, const QByteArray &input = {}) const;
    Ended runShell(const QString &command, const QStringList &words = {}) const;

    QString session;
    QString currentFolder;
    QProcessEnvironment environment;
    // Whether permissions of files hold for the program even when the superuser runs it.
    bool dropPrivileges = false;

private:
    Ended start(const QString &program, const QStringList &words, const QByteArray &input) const;

    QTemporaryDir folder;
};
