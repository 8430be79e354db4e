#pragma once

#include <QStringList>

#include <functional>

// The commands that succeeded, as they were typed, and the files that they are kept in: one command
// a line, without a header.
class RecordedScript
{
public:
    // Returns 0, or -1 when the file cannot be written.
    int save(const QString &fileName) const;

    // Hands over each line of a file, empty ones too. Returns 0, or -1 when the file cannot be
    // opened.
    static int load(const QString &fileName, const std::function<void(const QString &)> &run);

    QStringList commands;
};
