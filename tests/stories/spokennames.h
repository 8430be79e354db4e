#pragma once

#include <QAccessible>
#include <QLabel>
#include <QWidget>

// The controls in a widget that a screen reader could only call by their kind, with where they are.
inline QString withoutNames(const QWidget *root)
{
    QStringList nameless;
    for (QWidget *widget : root->findChildren<QWidget *>()) {
        // What a label says is its name, if it says anything; a list that drops down has its box's.
        if (qobject_cast<QLabel *>(widget) || widget->isWindow()
            || widget->focusPolicy() == Qt::NoFocus || widget->focusProxy()
            || widget->objectName().startsWith(QLatin1String("qt_"))
            || widget->inherits("QComboBoxListView"))
            continue;
        QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(widget);
        if (!spoken || spoken->text(QAccessible::Name).isEmpty())
            nameless.append(QStringLiteral("%1 \"%2\" in %3 of %4")
                                .arg(QLatin1String(widget->metaObject()->className()),
                                     widget->objectName(), widget->parentWidget()->objectName(),
                                     root->objectName()));
    }
    return nameless.join(QLatin1Char('\n'));
}
