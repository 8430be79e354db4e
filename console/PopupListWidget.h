#pragma once

#include "interp/export.h"

#include <QListWidget>

// The list in a completion popup: as large as its items, or as many of them as fit below its
// maximum height, and with Tab for Return.
class TCLSCRIPTING_EXPORT PopupListWidget : public QListWidget
{
    Q_OBJECT

public:
    using QListWidget::QListWidget;

    QSize sizeHint() const override;

protected:
    // Tab and Return emit itemActivated, with a null item when none is current.
    void keyPressEvent(QKeyEvent *event) override;
};
