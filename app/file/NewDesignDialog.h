#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

// Asks for what "designs new" takes, and makes the design as that command does. The design
// manager's opinion of the name shows while it is typed.
class NewDesignDialog : public QDialog
{
    Q_OBJECT

public:
    explicit NewDesignDialog(QWidget *parent = nullptr);

    // Makes the design. When that cannot be, the dialog stays and says why.
    void accept() override;

private:
    void addFields();
    void showStructures();
    void check();
    void showProblem(const QString &text);

    QLineEdit *name;
    QComboBox *type;
    QComboBox *structure;
    QLineEdit *vendor;
    QLineEdit *library;
    QLabel *folder;
    QLabel *problem;
    QPushButton *create;
};
