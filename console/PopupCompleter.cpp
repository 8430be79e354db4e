#include "console/PopupCompleter.h"

#include "console/PopupListWidget.h"

#include <QDebug>
#include <QScreen>
#include <QTextEdit>
#include <QVBoxLayout>

PopupCompleter::PopupCompleter(const QStringList &list, QWidget *parent)
    : QDialog(parent, Qt::Popup),
      listWidget(new PopupListWidget)
{
    setModal(true);
    listWidget->setUniformItemSizes(true);
    listWidget->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    listWidget->setMaximumHeight(200);
    qDebug().nospace() << "sizeHint(): " << listWidget->sizeHint();
    for (const QString &text : list) {
        auto *item = new QListWidgetItem;
        item->setData(Qt::DisplayRole, text);
        listWidget->insertItem(listWidget->count(), item);
    }
    // The hint depends on the maximum height, which a fixed size changes.
    const QSize size = listWidget->sizeHint();
    qDebug().nospace() << "sizeHint(): " << size;
    listWidget->setFixedSize(size);
    auto *box = new QVBoxLayout;
    box->setSizeConstraint(QLayout::SetFixedSize);
    box->setContentsMargins(0, 0, 0, 0);
    box->addWidget(listWidget);
    setLayout(box);
    connect(listWidget, &QListWidget::itemActivated, this, &PopupCompleter::onItemActivated);
}

int PopupCompleter::exec(QTextEdit *editor)
{
    const QSize size = sizeHint();
    const QRect cursor = editor->cursorRect();
    QPoint place = editor->viewport()->mapToGlobal(cursor.bottomRight());
    // The height is compared, not the bottom: so it is meant for the first screen.
    if (place.y() + size.height() > screen()->geometry().height()) {
        place = editor->viewport()->mapToGlobal(cursor.topRight());
        place.ry() -= size.height();
    }
    move(place);
    setFocus(Qt::OtherFocusReason);
    return QDialog::exec();
}

void PopupCompleter::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    listWidget->setFocus(Qt::OtherFocusReason);
}

void PopupCompleter::onItemActivated(QListWidgetItem *item)
{
    if (!item)
        return;
    chosen = item->data(Qt::DisplayRole).toString();
    done(Accepted);
}
