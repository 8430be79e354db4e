#pragma once

#include "app/designs/TreeRow.h"

#include <QSet>
#include <QTreeView>

class DesignTreeModel;

// The view of the tree of open designs. What a user sees stays where it is when rows around it come
// and go; what is open stays open, also over a filter. A design that comes opens up.
class DesignTreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit DesignTreeView(DesignTreeModel *treeModel, QWidget *parent = nullptr);

    // The rows that are selected, from top to bottom; the current one alone when none is.
    QList<TreeRow> selectedRows() const;
    TreeRow currentRow() const;
    // The one design that all selected rows are of; null when none is selected, or several are.
    MorvalenCore::Interfaces::IDesign *selectedDesign() const;

    // Selects the row of a design alone and scrolls to it; not while the user edits a row.
    void selectDesign(const MorvalenCore::Interfaces::IDesign *design);

    // Lets the user edit the value of a property where it stands; nothing for other rows.
    void editValue(const TreeRow &row);
    // The same for the name of a file.
    void editName(const TreeRow &row);

    // Opens or closes rows with all that is below them.
    void setUnfolded(const QList<TreeRow> &rows, bool unfolded);

    // Shows the items of a filter with all rows above them open, and without one what was open
    // before.
    void applyFilter(const QString &text);

    // Which branches are closed and open, by names that stay the same from one run to the next; and
    // how those that come are to be.
    QStringList foldedBranches() const;
    QStringList unfoldedBranches() const;
    void setFolding(const QStringList &folded, const QStringList &unfolded);

Q_SIGNALS:
    // A row is to do the first that comes to mind: by Return, or a double click.
    void rowActivated(const TreeRow &row);
    void menuAsked(const QPoint &globalPosition);

protected:
    void rowsInserted(const QModelIndex &parent, int start, int end) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void startDrag(Qt::DropActions actions) override;

private:
    void editColumn(const TreeRow &row, int column);
    void askForMenu();
    void activateRow(const QModelIndex &index);
    void rememberPlace();
    void restorePlace();
    void restoreCurrent();
    void remember(const QModelIndex &index, bool isOpen);
    void openUp(const QModelIndex &index);

    DesignTreeModel *tree;
    // The row at the upper edge, and how far above the edge it begins.
    QPersistentModelIndex topRow;
    int topOffset = 0;
    // Where the current row is, in case it goes.
    QPersistentModelIndex currentParent;
    int currentPlace = -1;
    // Which branches are open when there is no filter, and which designs were ever shown.
    QSet<QString> openBranches;
    QSet<QString> knownBranches;
    bool isRemembering = true;
};
