#pragma once

#include <QDialog>

// Shows how the text on disk differs from the one in a page.
class DifferenceDialog : public QDialog
{
    Q_OBJECT

public:
    DifferenceDialog(const QString &title, const QString &onDisk, const QString &here,
                     QWidget *parent = nullptr);
};
