#pragma once

#include "interp/export.h"

#include <QDialog>

class PopupListWidget;
class QListWidgetItem;
class QTextEdit;

// A small modal popup that offers candidates beside the text cursor of an editor. It is created
// with its candidates, run once and then read; the caller owns it.
class TCLSCRIPTING_EXPORT PopupCompleter : public QDialog
{
    Q_OBJECT

public:
    PopupCompleter(const QStringList &list, QWidget *parent);

    // Opens the popup below the editor's cursor, or above it where the screen ends, and waits.
    // Returns 1 when a candidate was chosen and 0 when the popup was closed otherwise.
    int exec(QTextEdit *editor);
    using QDialog::exec;

    // The candidate that was chosen; empty until then.
    QString selectedCommand() const { return chosen; }

protected:
    void showEvent(QShowEvent *event) override;

private Q_SLOTS:
    void onItemActivated(QListWidgetItem *item);

private:
    PopupListWidget *listWidget;
    QString chosen;
};
