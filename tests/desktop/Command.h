#pragma once

#include <QString>
#include <QStringList>

// A command that ran to its end: its status, and what it wrote.
struct Command
{
    int status = -1;
    QString output;
    QString error;

    static Command run(const QString &program, const QStringList &arguments,
                       const QString &folder = QString());
};

// The text of a file of the project.
QString projectText(const QString &name);
