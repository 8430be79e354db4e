#pragma once

#include <QJsonObject>
#include <QObject>
#include <QTimer>

class MainWindow;

// What is open in the window, kept in a file of the session and opened again by the next window:
// designs, the project, pages with their places, what is folded in the tree, and the mode. It is
// written a moment after it changes too, so that it is there after a kill. Several windows of a
// session share the file, and the last one counts.
class OpenThings : public QObject
{
    Q_OBJECT

public:
    // The milliseconds from a change to the write.
    static constexpr int delay = 2'000;

    explicit OpenThings(MainWindow *window);

    static QString fileName();

    // Opens what was open, unless the user does not want it. What is gone, the user is told.
    void restore();

    // Writes what is open now, from then on also when it changes; nothing stays when the user does
    // not want it.
    void write();

    // Takes the pages of now for those that are open, whatever is closed, until they are let go.
    void holdPages() { held = presentPages(); }
    void letGoPages() { held = QJsonObject(); }

private:
    QJsonObject present() const;
    QJsonObject presentPages() const;
    void openDesigns(const QJsonObject &things, QStringList *reasons) const;
    void openPages(const QJsonObject &things) const;

    MainWindow *window;
    QTimer timer;
    QJsonObject held;
};
