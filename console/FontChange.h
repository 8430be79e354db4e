#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QTextCharFormat>
#include <QTextCursor>

// Gives all text of a document a new font without a pause: the newest paragraphs get it at once,
// the others in small steps while the event loop has nothing else to do. Undo is off meanwhile.
class FontChange : public QObject
{
public:
    explicit FontChange(QTextDocument *textDocument) : document(textDocument) { }

    void start(const QTextCharFormat &format);

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void change(int paragraphs);

    QTextDocument *const document;
    QTextCharFormat characters;
    QTextCursor old; // what is in front of it has the old font
    QBasicTimer timer;
};
