#pragma once

#include <QObject>

QT_FORWARD_DECLARE_CLASS(QSessionManager)

class EditorArea;

// Whether the program may end, and what it asks before: about a command that is running, and about
// all that is not saved. One per window.
class Leaving : public QObject
{
    Q_OBJECT

public:
    Leaving(EditorArea *editors, QWidget *window);

    // Asks the user. False when the program is to go on; nothing is lost then.
    bool mayLeave();

    // Asks only about texts in the editors, with no way back: the program ends in any case.
    void settleForGood();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool askAll();
    bool mayInterrupt() const;
    void endOfSession(QSessionManager &session);

    EditorArea *editors;
    QWidget *window;
    bool isAsking = false;
};
