#pragma once

#include "app/designs/TreeRow.h"

#include <QDialog>

class QPushButton;
class QTreeWidget;

// Shows the shared properties of an item, and adds, changes and removes them. Goes away with the
// item.
class SharedPropertiesDialog : public QDialog
{
    Q_OBJECT

public:
    // The row is one of an item that is there.
    explicit SharedPropertiesDialog(const TreeRow &itemRow, QWidget *parent = nullptr);

private:
    void makeButtons(QWidget *column);
    void refresh();
    void updateButtons();
    QString currentName() const;
    void add();
    void change();
    void remove();
    void store(const QString &name, const QVariant &value);

    TreeRow row;
    QTreeWidget *list;
    QPushButton *addButton = nullptr;
    QPushButton *changeButton = nullptr;
    QPushButton *removeButton = nullptr;
};
