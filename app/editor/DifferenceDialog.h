#pragma once

#include <QDialog>

// Shows how the text on disk differs from the one in a page. The line with the numbers before each
// part is a link into the page.
class DifferenceDialog : public QDialog
{
    Q_OBJECT

public:
    DifferenceDialog(const QString &title, const QString &onDisk, const QString &here,
                     QWidget *parent = nullptr);

Q_SIGNALS:
    // The user wants to see a line of the page, counted from 1.
    void lineWanted(int line);
};
