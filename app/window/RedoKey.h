#pragma once

#include <QObject>

// Ctrl+Y redoes in fields and texts also where the desktop has another key for that.
class RedoKey : public QObject
{
    Q_OBJECT

public:
    explicit RedoKey(QObject *parent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
