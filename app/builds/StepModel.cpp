#include "app/builds/StepModel.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyle>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildStep;

void StepModel::setSteps(const QList<BuildStep> &steps, const QList<BuildStep> &stepsOfFiles)
{
    beginResetModel();
    own = steps;
    ofFiles = stepsOfFiles;
    endResetModel();
}

void StepModel::setStepsOfFiles(const QList<BuildStep> &steps)
{
    if (steps != ofFiles)
        setSteps(own, steps);
}

void StepModel::setStates(const QHash<QString, QString> &words)
{
    if (words == states)
        return;
    states = words;
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, State), index(rowCount() - 1, State));
}

void StepModel::setMarks(const QHash<int, QString> &problems)
{
    if (problems == marks)
        return;
    marks = problems;
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 0));
}

const BuildStep &StepModel::step(int row) const
{
    return isOwn(row) ? own.at(row) : ofFiles.at(row - own.size());
}

QString StepModel::reason(int row) const
{
    if (isOwn(row))
        return {};
    return tr("This step is the build command of the file \"%1\". It is part of the file's "
              "description in the component file and cannot be changed here.")
        .arg(step(row).inputs.value(0));
}

void StepModel::setStep(int row, const BuildStep &step)
{
    if (own.at(row) == step)
        return;
    own[row] = step;
    Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
    Q_EMIT changed();
}

void StepModel::insert(int row, const BuildStep &step)
{
    beginInsertRows({}, row, row);
    own.insert(row, step);
    endInsertRows();
    Q_EMIT changed();
}

void StepModel::remove(int row)
{
    beginRemoveRows({}, row, row);
    own.removeAt(row);
    endRemoveRows();
    Q_EMIT changed();
}

void StepModel::swapWithNext(int row)
{
    beginMoveRows({}, row + 1, row + 1, {}, row);
    own.swapItemsAt(row, row + 1);
    endMoveRows();
    Q_EMIT changed();
}

int StepModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(own.size() + ofFiles.size());
}

int StepModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant StepModel::data(const QModelIndex &index, int role) const
{
    const BuildStep &shown = step(index.row());
    const bool fixed = !isOwn(index.row());
    switch (role) {
    case Qt::DisplayRole:
        switch (Column(index.column())) {
        case Name:
            return shown.name.simplified();
        case Command:
            return shown.command.simplified();
        case Inputs:
            return shown.inputs.join(u", "_s);
        case Outputs:
            return shown.outputs.join(u", "_s);
        case State:
            return states.value(shown.name);
        case ColumnCount:
            break;
        }
        return {};
    case Qt::DecorationRole:
        return index.column() == Name && marks.contains(index.row())
            ? QVariant(QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning))
            : QVariant();
    case Qt::ToolTipRole:
        if (marks.contains(index.row()))
            return marks.value(index.row());
        return fixed ? QVariant(reason(index.row())) : QVariant();
    case Qt::ForegroundRole:
        return fixed ? QVariant(QGuiApplication::palette().brush(QPalette::PlaceholderText))
                     : QVariant();
    default:
        return {};
    }
}

QVariant StepModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return section + 1;
    const QString titles[ColumnCount] = {tr("Step"), tr("Command"), tr("Inputs"), tr("Outputs"),
                                         tr("State")};
    return titles[section];
}
