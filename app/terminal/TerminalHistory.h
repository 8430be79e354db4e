#pragma once

#include <Qtilities/Status.h>

#include <QString>

#include <histedit.h>

// The lines that were typed in the terminal, kept in a file: each is there whole, or as it was
// before, whatever happens while it is written. A file that cannot be read is left alone.
class TerminalHistory
{
public:
    explicit TerminalHistory(const QString &file);
    ~TerminalHistory();
    Q_DISABLE_COPY_MOVE(TerminalHistory)

    // Whether what the file holds is here; a file that is missing holds nothing.
    const Qtilities::Core::Status &loaded() const { return loading; }

    // Nothing is remembered twice in a row. Another process may keep the same file: the last one
    // that writes counts.
    Qtilities::Core::Status remember(const QString &command);

    // For the library that edits the lines.
    HistoryW *handle() const { return history; }

private:
    Qtilities::Core::Status load();
    Qtilities::Core::Status save() const;

    const QString fileName;
    HistoryW *history;
    Qtilities::Core::Status loading;
};
