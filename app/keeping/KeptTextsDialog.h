#pragma once

#include "app/keeping/KeptTexts.h"

#include <QDialog>

class QPushButton;
class QTreeWidget;

// Offers texts that a killed program has left, each with what has become of its file. Those that
// the user does not decide about are offered again the next time.
class KeptTextsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit KeptTextsDialog(const QList<KeptText> &texts, QWidget *parent = nullptr);

Q_SIGNALS:
    // The user wants a text back, or not.
    void restored(const KeptText &text);
    void discarded(const KeptText &text);

private:
    void addButtons();
    QList<int> selected() const;
    void decide(void (KeptTextsDialog::*answer)(const KeptText &));
    void discard();
    void showDifference();
    void updateButtons();

    QList<KeptText> offered;
    QTreeWidget *list;
    QPushButton *restoreButton;
    QPushButton *differenceButton;
    QPushButton *discardButton;
};
