#pragma once

#include <QAbstractListModel>
#include <QList>

// What the locator finds, and what of it has all words of a text: names that begin with it first.
class LocatorModel : public QAbstractListModel
{
    Q_OBJECT

public:
    // More are not shown.
    static constexpr qsizetype mostRows = 200;

    enum Kind { File, Design, Command, Script, Setting };
    struct Entry
    {
        Kind kind = File;
        QString name;
        // What tells entries of one name apart, such as the folder.
        QString details;
        // The path, the id or the word.
        QString target;
    };

    using QAbstractListModel::QAbstractListModel;

    void setEntries(const QList<Entry> &entries);
    void filter(const QString &text);
    const Entry &entry(int row) const { return all[rows[row]]; }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    QList<Entry> all;
    QList<qsizetype> rows;
};
