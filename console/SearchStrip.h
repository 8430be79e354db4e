#pragma once

#include <QFrame>

class QConsole;
class QLabel;
class QLineEdit;

// A strip in the upper right corner of a console in which the user types what to search for. The
// search follows while it is typed. Return and Escape close the strip and hand the keyboard back;
// then it is destroyed. A console has one strip at most.
class SearchStrip : public QFrame
{
    Q_OBJECT

public:
    // Shows a strip in place of the one that is open, if any.
    static void open(SearchStrip *strip);

protected:
    SearchStrip(QConsole *owner, const QString &title);

    bool eventFilter(QObject *watched, QEvent *event) override;

    QString pattern() const;
    void setPattern(const QString &text); // without a search
    void setNote(const QString &text);
    void leave();

    virtual void search() = 0; // the pattern has changed
    virtual bool pressed(const QKeyEvent &event) = 0; // whether the key is one of the strip's
    virtual void cancel() { } // the strip goes by Escape

    QConsole *const console;

private:
    void place();
    bool keyPressed(const QKeyEvent &event);

    QLineEdit *edit;
    QLabel *note;
};
