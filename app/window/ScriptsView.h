#pragma once

#include <QWidget>

class QFileSystemModel;
class QTreeView;

// The folder of scripts with its sub-folders. Return and a double click edit a script, F5 runs it.
class ScriptsView : public QWidget
{
    Q_OBJECT

public:
    explicit ScriptsView(const QString &folder, QWidget *parent = nullptr);

Q_SIGNALS:
    void editWanted(const QString &script);
    void runWanted(const QString &script);
    void newWanted();

protected:
    // The folder is looked at when it is first seen.
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeModel();
    QString scriptAt(const QModelIndex &index) const;
    void edit(const QModelIndex &index);
    void run();
    void showMenu(const QPoint &position);

    QString folder;
    QTreeView *tree;
    QFileSystemModel *model = nullptr;
};
