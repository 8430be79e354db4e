#pragma once

#include <QObject>

#include <array>
#include <csignal>

class EditorArea;
class QSocketNotifier;
class TextKeeper;

// An end that nobody was asked about: SIGHUP, or a display that is gone. What is not saved then
// goes to the backups, texts and designs alike, and the log says where; texts are offered by the
// next window too. Nothing is written where it belongs, since nobody has said so. A signal that the
// program was started to ignore stays ignored, and the second one ends it at once.
// One per process, on the GUI thread.
class SuddenEnd : public QObject
{
    Q_OBJECT

public:
    SuddenEnd(EditorArea *area, TextKeeper *textKeeper, QObject *parent = nullptr);
    ~SuddenEnd() override;

    // Keeps what is not saved before the user is asked, who may not be there to answer.
    void secure(const QString &reason);

    // The program ends in its own way now.
    void disarm();

Q_SIGNALS:
    // What is remembered is to be written.
    void ending();

private:
    void takeSignal();
    void secureTexts() const;
    void secureDesigns() const;
    static void atExit();

    static constexpr std::array signalNumbers {SIGHUP};

    EditorArea *editors;
    TextKeeper *keeper;
    int pipeEnds[2] = {-1, -1};
    QSocketNotifier *arrival = nullptr;
    std::array<struct sigaction, signalNumbers.size()> before {};
    bool isArmed = false;
};
