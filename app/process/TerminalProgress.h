#pragma once

#include <QObject>

// Shows the progress of builds in one line on standard error, for runs without a window; does
// nothing when that is no terminal. What the log writes there takes the line's place.
class TerminalProgress : public QObject
{
    Q_OBJECT

public:
    explicit TerminalProgress(QObject *parent = nullptr);
    ~TerminalProgress() override;

private:
    void show(const QString &text);

    bool isShown = false;
};
