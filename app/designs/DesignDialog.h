#pragma once

#include "app/designs/TreeRow.h"

#include <QDialog>

class HostCall;
class QCheckBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

// Shows what a design is, and changes what of it can be changed. Goes away with the design.
class DesignDialog : public QDialog
{
    Q_OBJECT

public:
    // The row is one of a design that is there.
    explicit DesignDialog(const TreeRow &designRow, QWidget *parent = nullptr);

    // Changes what the user changed; what the design refuses, the user is told.
    void accept() override;

private:
    QLineEdit *addLine(QFormLayout *form, const QString &label, const QString &text);
    void addFacts(QFormLayout *form, const MorvalenCore::Interfaces::IDesign &design);
    void check();
    void apply(MorvalenCore::Interfaces::IDesign &design, HostCall &attempt);

    TreeRow row;
    QLineEdit *name = nullptr;
    QLineEdit *vendor = nullptr;
    QLineEdit *library = nullptr;
    QLineEdit *author = nullptr;
    QPlainTextEdit *description = nullptr;
    QCheckBox *readOnly = nullptr;
    QLabel *problem = nullptr;
    QPushButton *ok = nullptr;
};
