#include "app/editor/TextView.h"

#include "app/editor/FindBar.h"
#include "app/editor/GoToLineBar.h"
#include "app/editor/PositionBar.h"
#include "app/editor/TextEdit.h"

#include <QApplication>
#include <QScrollBar>
#include <QVBoxLayout>

TextView::TextView(QWidget *parent) : TextView(new TextEdit, parent) { }

TextView::TextView(const TextView &other, QWidget *parent) : TextView(other.edit->another(), parent)
{
    position->take(*other.position);
    edit->verticalScrollBar()->setValue(other.edit->verticalScrollBar()->value());
}

TextView::TextView(TextEdit *theEdit, QWidget *parent)
    : QWidget(parent),
      edit(theEdit),
      findBar(new FindBar(edit, this)),
      goToLineBar(new GoToLineBar(edit, this)),
      position(new PositionBar(edit, this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(edit, 1);
    layout->addWidget(findBar);
    layout->addWidget(goToLineBar);
    layout->addWidget(position);
    setFocusProxy(edit);
}

void TextView::openFind(bool replacing)
{
    goToLineBar->hide();
    findBar->open(replacing);
}

void TextView::openGoToLine()
{
    findBar->hide();
    goToLineBar->open();
}

bool TextView::hasKeyboard() const
{
    const QWidget *focused = QApplication::focusWidget();
    return focused && isAncestorOf(focused);
}
