#pragma once

#include <QProcess>
#include <QTemporaryDir>

// The program while it runs, with a session of its own; it is killed when the object goes.
class RunningProgram
{
public:
    // Starts it, with a window that nobody sees or without one.
    explicit RunningProgram(bool withWindow);
    ~RunningProgram();

    void start(const QStringList &words);

    QString path(const QString &name) const { return folder.filePath(name); }
    void write(const QString &name, const QByteArray &bytes) const;
    QByteArray read(const QString &name) const;

    // The next line of its standard output, without the line end; empty when none comes.
    QByteArray nextLine();

    // Waits for its end: the exit status, -1 for a crash or no end.
    int status();
    QByteArray errors() { return process.readAllStandardError(); }

private:
    QTemporaryDir folder;
    QProcess process;
};
