#pragma once

#include <QObject>

// Shift+F10 opens the menu of what has the keyboard in lists, trees, fields and texts, also where
// the desktop knows only the key that is made for it, which many keyboards have not.
class MenuKey : public QObject
{
    Q_OBJECT

public:
    explicit MenuKey(QObject *parent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
