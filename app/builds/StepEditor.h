#pragma once

#include <MorvalenCore/BuildStep.h>

#include <QWidget>

class QLabel;
class QPushButton;
class QTableView;
class StepForm;
class StepModel;

// Lets the user change the steps of a build configuration: a table of them, buttons that add,
// remove and move, and a form for the step that is chosen.
class StepEditor : public QWidget
{
    Q_OBJECT

public:
    explicit StepEditor(QWidget *parent = nullptr);

    const QList<MorvalenCore::BuildStep> &steps() const;
    // The step that is chosen stays so as far as there is one in its place.
    void setSteps(const QList<MorvalenCore::BuildStep> &steps);
    // Those that files bring along.
    void setStepsOfFiles(const QList<MorvalenCore::BuildStep> &steps);
    void setReadOnly(bool flag);
    // How steps are, by their names.
    void setStates(const QHash<QString, QString> &words);
    // Marks rows whose names cannot stay, and says why, a line each.
    QStringList markProblems();

Q_SIGNALS:
    void changed();

private:
    void prepareView();
    void layOut();
    QPushButton *addButton(const QString &text, const char *name, void (StepEditor::*act)());
    int row() const;
    void choose(int row);
    void show();
    void add();
    void remove();
    void moveUp();
    void moveDown();

    StepModel *model;
    QTableView *view;
    QLabel *reason;
    StepForm *form;
    QPushButton *addStep;
    QPushButton *removeStep;
    QPushButton *up;
    QPushButton *down;
    bool readOnly = false;
};
