#include "app/editor/GoToLineBar.h"

#include "app/editor/TextEdit.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

using namespace Qt::Literals::StringLiterals;

GoToLineBar::GoToLineBar(TextEdit *theEdit, QWidget *parent)
    : QWidget(parent),
      edit(theEdit),
      line(new QSpinBox(this)),
      lines(new QLabel(this))
{
    setObjectName(u"goToLineBar"_s);
    line->setObjectName(u"line"_s);
    line->setAccelerated(true);
    auto *label = new QLabel(tr("Go to line:"), this);
    label->setBuddy(line);
    auto *button = new QPushButton(tr("&Go"), this);
    connect(button, &QPushButton::clicked, this, &GoToLineBar::go);
    auto *layout = new QHBoxLayout(this);
    const int margin = fontMetrics().averageCharWidth();
    layout->setContentsMargins(margin, margin / 2, margin, margin / 2);
    for (QWidget *widget : {static_cast<QWidget *>(label), static_cast<QWidget *>(line),
                            static_cast<QWidget *>(lines), static_cast<QWidget *>(button)})
        layout->addWidget(widget);
    layout->addStretch(1);
    hide();
}

void GoToLineBar::open()
{
    line->setRange(1, edit->blockCount());
    line->setValue(edit->textCursor().blockNumber() + 1);
    lines->setText(tr("of %L1").arg(edit->blockCount()));
    show();
    line->setFocus();
    line->selectAll();
}

void GoToLineBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        leave();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        go();
    else
        QWidget::keyPressEvent(event);
}

void GoToLineBar::go()
{
    line->interpretText();
    edit->goToLine(line->value());
    leave();
}

void GoToLineBar::leave()
{
    hide();
    edit->setFocus();
}
