#pragma once

#include <MorvalenCore/BuildStep.h>

#include <QAbstractTableModel>
#include <QHash>
#include <QList>

// The steps of a build configuration as a table: its own, which can be changed, and behind them
// those that files bring along, which cannot.
class StepModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Name, Command, Inputs, Outputs, State, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    const QList<MorvalenCore::BuildStep> &steps() const { return own; }
    void setSteps(const QList<MorvalenCore::BuildStep> &steps,
                  const QList<MorvalenCore::BuildStep> &stepsOfFiles);
    void setStepsOfFiles(const QList<MorvalenCore::BuildStep> &steps);

    // How steps are, by their names.
    void setStates(const QHash<QString, QString> &words);

    // What is wrong with rows.
    void setMarks(const QHash<int, QString> &problems);

    // A row of the table.
    const MorvalenCore::BuildStep &step(int row) const;
    bool isOwn(int row) const { return row >= 0 && row < own.size(); }
    // Why a step cannot be changed; empty for the configuration's own.
    QString reason(int row) const;

    // For the configuration's own steps.
    void setStep(int row, const MorvalenCore::BuildStep &step);
    void insert(int row, const MorvalenCore::BuildStep &step);
    void remove(int row);
    void swapWithNext(int row);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    // The own steps are others.
    void changed();

private:
    QList<MorvalenCore::BuildStep> own;
    QList<MorvalenCore::BuildStep> ofFiles;
    QHash<int, QString> marks;
    QHash<QString, QString> states;
};
