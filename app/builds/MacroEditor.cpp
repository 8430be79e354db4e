#include "app/builds/MacroEditor.h"

#include "app/builds/nameproblems.h"
#include "app/builds/tableform.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTableWidget>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildMacro;

namespace {

constexpr int leastRows = 2;

// Tells of every key that is typed into a cell.
class TypingDelegate : public QStyledItemDelegate
{
public:
    TypingDelegate(MacroEditor *theOwner) : QStyledItemDelegate(theOwner), owner(theOwner) { }

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override
    {
        QWidget *editor = QStyledItemDelegate::createEditor(parent, option, index);
        if (const auto *line = qobject_cast<const QLineEdit *>(editor))
            connect(line, &QLineEdit::textEdited, owner, &MacroEditor::changed);
        return editor;
    }

private:
    MacroEditor *owner;
};

} // namespace

MacroEditor::MacroEditor(QWidget *parent)
    : QWidget(parent),
      table(new QTableWidget(0, 2, this)),
      addButton(new QPushButton(tr("Add Mac&ro"), this)),
      removeButton(new QPushButton(tr("Remove M&acro"), this))
{
    table->setObjectName(u"macroTable"_s);
    table->setHorizontalHeaderLabels({tr("Macro"), tr("Value")});
    table->horizontalHeader()->setStretchLastSection(true);
    table->verticalHeader()->hide();
    makeCompact(table, leastRows);
    table->setTabKeyNavigation(false);
    table->setWordWrap(false);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setAccessibleName(tr("Macros"));
    table->setToolTip(tr("$(NAME) in a command, a path or a value stands for the macro's value."));
    addButton->setObjectName(u"addMacro"_s);
    removeButton->setObjectName(u"removeMacro"_s);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(addButton);
    buttons->addWidget(removeButton);
    buttons->addStretch();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(table, 1);
    layout->addLayout(buttons);

    auto *delegate = new TypingDelegate(this);
    table->setItemDelegate(delegate);
    // The row that was typed in is marked once its field has gone.
    connect(delegate, &QAbstractItemDelegate::closeEditor, this, &MacroEditor::markProblems,
            Qt::QueuedConnection);
    connect(table, &QTableWidget::itemChanged, this, &MacroEditor::changed);
    connect(table, &QTableWidget::currentCellChanged, this, &MacroEditor::updateButtons);
    connect(addButton, &QPushButton::clicked, this, &MacroEditor::add);
    connect(removeButton, &QPushButton::clicked, this, &MacroEditor::remove);
    updateButtons();
}

// A cell that is being edited when the table goes changes it once more.
MacroEditor::~MacroEditor() { table->disconnect(this); }

QList<BuildMacro> MacroEditor::macros() const
{
    QList<BuildMacro> list;
    for (int row = 0; row < table->rowCount(); ++row)
        list.append({table->item(row, 0)->text(), table->item(row, 1)->text()});
    const auto *typing = qobject_cast<const QLineEdit *>(window()->focusWidget());
    if (typing && table->isAncestorOf(typing) && table->currentRow() >= 0) {
        BuildMacro &macro = list[table->currentRow()];
        (table->currentColumn() == 0 ? macro.name : macro.value) = typing->text();
    }
    return list;
}

void MacroEditor::setMacros(const QList<BuildMacro> &macros)
{
    const QSignalBlocker blocker(table);
    table->setRowCount(int(macros.size()));
    for (int row = 0; row < macros.size(); ++row)
        setRow(row, macros[row]);
    updateButtons();
}

QStringList MacroEditor::markProblems()
{
    QStringList names;
    for (const BuildMacro &macro : macros())
        names.append(macro.name);
    const auto [texts, marks] =
        findNameProblems(names, tr("Two macros have the name \"%1\"."), tr("A macro has no name."));
    const QSignalBlocker blocker(table);
    for (int row = 0; row < table->rowCount(); ++row) {
        QTableWidgetItem *item = table->item(row, 0);
        // A cell that changes below its field would give the field its text again.
        if (item->toolTip() == marks.value(row) || (isTyping() && row == table->currentRow()))
            continue;
        item->setToolTip(marks.value(row));
        item->setIcon(marks.contains(row) ? style()->standardIcon(QStyle::SP_MessageBoxWarning)
                                          : QIcon());
    }
    return texts;
}

bool MacroEditor::isTyping() const
{
    const auto *field = qobject_cast<const QLineEdit *>(window()->focusWidget());
    return field && table->isAncestorOf(field);
}

void MacroEditor::setReadOnly(bool flag)
{
    readOnly = flag;
    table->setEditTriggers(flag ? QAbstractItemView::NoEditTriggers
                                : QAbstractItemView::DoubleClicked
                                   | QAbstractItemView::EditKeyPressed
                                   | QAbstractItemView::AnyKeyPressed);
    updateButtons();
}

void MacroEditor::setRow(int row, const BuildMacro &macro)
{
    table->setItem(row, 0, new QTableWidgetItem(macro.name));
    table->setItem(row, 1, new QTableWidgetItem(macro.value));
}

void MacroEditor::add()
{
    const int row = table->currentRow() + 1;
    {
        const QSignalBlocker blocker(table);
        table->insertRow(row);
        setRow(row, {tr("NAME"), {}});
    }
    table->setCurrentCell(row, 0);
    table->setFocus();
    Q_EMIT changed();
    table->editItem(table->item(row, 0));
}

void MacroEditor::remove()
{
    table->removeRow(table->currentRow());
    updateButtons();
    Q_EMIT changed();
}

void MacroEditor::updateButtons()
{
    addButton->setEnabled(!readOnly);
    removeButton->setEnabled(!readOnly && table->currentRow() >= 0);
}
