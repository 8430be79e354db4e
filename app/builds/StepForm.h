#pragma once

#include <MorvalenCore/BuildStep.h>

#include <QWidget>

class QLineEdit;
class QPlainTextEdit;

// Shows one step of a build and lets the user change it. What the user does not touch stays as it
// is, to the last character.
class StepForm : public QWidget
{
    Q_OBJECT

public:
    explicit StepForm(QWidget *parent = nullptr);

    void setStep(const MorvalenCore::BuildStep &step);
    const MorvalenCore::BuildStep &step() const { return current; }
    void setReadOnly(bool readOnly);
    // Where a new step is named.
    void focusName();

Q_SIGNALS:
    // By the user.
    void edited();

private:
    QPlainTextEdit *addText(const char *name, int lines);
    void takeLines(const QPlainTextEdit *from, QStringList *to);

    MorvalenCore::BuildStep current;
    QLineEdit *name;
    QPlainTextEdit *command;
    QPlainTextEdit *inputs;
    QPlainTextEdit *outputs;
    QLineEdit *pool;
    bool filling = false;
};
