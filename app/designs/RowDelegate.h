#pragma once

#include <QStyledItemDelegate>

// Gives the rows room, says in the tool tip what is cut, and edits the values of properties where
// they stand: a text that is one of the property's type, or a choice of two.
class RowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    // An editor has its text from the start. The view asks for it again whenever a row has changed,
    // which must not undo what is typed.
    void setEditorData(QWidget *, const QModelIndex &) const override { }
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;
};
