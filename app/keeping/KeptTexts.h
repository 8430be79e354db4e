#pragma once

#include <Qtilities/Status.h>

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <memory>
#include <vector>

QT_FORWARD_DECLARE_CLASS(QLockFile)

// A text that was typed and is not saved.
struct KeptText
{
    // The file that it belongs to.
    QString path;
    // What was known of the file when the text was made of it.
    QByteArray base;
    QString text;
    // Where the cursor was, in characters from the start.
    int cursor = 0;
    QDateTime time;
};

// Texts that are kept aside in the session folder while they are not saved. Each process has a
// folder of its own there, which goes when the process ends well; what a process that was killed
// has left is found by the next one. A text is written whole or not at all.
class KeptTexts
{
public:
    KeptTexts();
    // What is kept stays, as after a kill, until dropAll() was called.
    ~KeptTexts();
    Q_DISABLE_COPY_MOVE(KeptTexts)

    // Keeps a text in place of what was kept of its file.
    Qtilities::Core::Status keep(const KeptText &text);
    bool keeps(const QString &path) const;
    // Keeps nothing of a file any more, or of none.
    void drop(const QString &path);
    void dropAll();

    // Takes over what processes that are gone have left; nobody else gets it meanwhile. What cannot
    // be read is moved to the backups, and the status says so.
    Qtilities::Core::Result<QList<KeptText>> takeLeft();
    // Removes one of those for good. Those that are not removed are left again.
    void removeLeft(const KeptText &text);
    void leaveAgain();

private:
    class Folder;

    Qtilities::Core::Status prepare();

    std::unique_ptr<Folder> own;
    std::vector<std::unique_ptr<Folder>> left;
};
