#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <utility>

// Gathers what a script writes to one channel into whole lines. Each part of a line shows at once,
// behind what the line has already; the line is told when it is complete.
class OutputLine
{
public:
    // What the parts of lines are shown with, and whole lines told by.
    struct Receiver
    {
        std::function<void(const QString &)> begin; // shows a text in a line of its own
        std::function<void(const QString &)> goOn; // shows more of that line
        std::function<void(const QString &)> tell;
    };

    explicit OutputLine(Receiver receiver) : to(std::move(receiver)) { }

    void write(const QByteArray &bytes);

    // Tells what is there of a line that nobody has ended. What comes next is a new one.
    void finish();

private:
    Receiver to;
    QByteArray split; // the beginning of a character whose other bytes have not come yet
    QString text; // of the line that is not complete
    bool isOpen = false;
};
