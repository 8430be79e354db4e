#pragma once

#include <QDockWidget>

class QPlainTextEdit;

// Shows the journal, and lets users copy it, keep it as a script, and run it again from a line on.
class JournalDock : public QDockWidget
{
    Q_OBJECT

public:
    explicit JournalDock(QWidget *parent = nullptr);

Q_SIGNALS:
    // The user wants commands to be run.
    void runWanted(const QStringList &entries);

private:
    void addButtons(QWidget *bar);
    void append(const QString &entry);
    void copy();
    void saveAsScript();
    void runFromHere();
    // The entries from the one with the cursor on.
    QStringList fromHere() const;

    QPlainTextEdit *text;
};
