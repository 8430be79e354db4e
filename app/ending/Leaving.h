#pragma once

#include <QObject>

QT_FORWARD_DECLARE_CLASS(QSessionManager)

class EditorArea;

// Whether the program may end, and what it asks before: about builds and commands that are running,
// and about all that is not saved. One per window.
class Leaving : public QObject
{
    Q_OBJECT

public:
    Leaving(EditorArea *editors, QWidget *window);

    // Asks the user. False when the program is to go on; nothing is lost then. When builds are to
    // be cancelled first, the window is closed anew once they have ended.
    bool mayLeave();

    // The same when the desktop's session ends, which wants an answer at once. A script that runs
    // is stopped when the user agrees; the window is closed, and all else asked, once it has ended.
    bool mayEndWithSession();

    // Asks only about texts in the editors, with no way back: the program ends in any case.
    // False when something that was to be saved is not.
    bool settleForGood();

Q_SIGNALS:
    // The user is about to be asked, and has answered; pages close while the answers come.
    void asking();
    void answered(bool agreed);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool askAll();
    bool areBuildsDone();
    bool mayInterrupt() const;
    void endOfSession(QSessionManager &session);

    EditorArea *editors;
    QWidget *window;
    bool isAsking = false;
};
