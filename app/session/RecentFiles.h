#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

// The component and project files that were opened or made last, newest first, by whatever way. It
// follows the design manager and the project manager, and keeps the list in the session's settings,
// which other processes may share; nothing is kept while the user does not want it.
class RecentFiles : public QObject
{
    Q_OBJECT

public:
    static constexpr int most = 20;

    enum Kind { Designs, Projects };

    explicit RecentFiles(QObject *parent = nullptr);

    // Absolute paths, newest first, as the settings hold them now.
    static QStringList files(Kind kind);
    static void clear();

private:
    void addDesign(const QString &designId);
    void addProject();
    void add(Kind kind, const QString &file);
    void write();

    // What was opened since the settings were written, oldest first.
    QStringList opened[2];
    QTimer writeTimer;
};
