#pragma once

#include "app/issues/IssueList.h"

#include <QAbstractItemModel>

// The rows of the issues: a row for each build or script, and below it its issues.
class IssueModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column { MessageColumn, FileColumn, LineColumn, ColumnCount };

    // The list stays the caller's and outlives the model.
    explicit IssueModel(const IssueList *list, QObject *parent = nullptr);

    // Shows what the list has now.
    void follow();

    // Null for the row of a source.
    const Issue *issue(const QModelIndex &index) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QVariant ofSource(int row, int column, int role) const;
    static QVariant ofIssue(const Issue &issue, int column, int role);

    const IssueList *list;
    // As the list was when it was followed last.
    QList<IssueList::Source> shown;
};
