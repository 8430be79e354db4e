#pragma once

#include <QDialog>

// Shows a text of several lines that can be read and copied.
class ReportDialog : public QDialog
{
    Q_OBJECT

public:
    ReportDialog(const QString &title, const QString &report, QWidget *parent = nullptr);
};
