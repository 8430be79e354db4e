#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <span>

class Story;

// Runs the journal of a story again, in the program and in a session of its own, and compares the
// component and project files that both have made, byte for byte.
class JournalReplay
{
public:
    // The stories that run nothing again, and why.
    struct Exception
    {
        const char *story;
        const char *reason;
    };
    static std::span<const Exception> exceptions();

    // Forgets the journal: what is compared begins here, and is what is made from here on.
    static void begin(const Story *story = nullptr);

    // Fails the test that is running when the files differ. Files outside the session are first
    // made what the story wrote itself since the beginning. What was in the journal earlier, and
    // was cleared, is run before.
    static void compare(const Story &story, const QString &earlier = {});

    // The component and project files below the session, by path.
    static QHash<QString, QByteArray> filesOf(const QString &session);

private:
    static inline QHash<QString, QByteArray> older;
    static void run(const Story &story, const QByteArray &journal);
};
