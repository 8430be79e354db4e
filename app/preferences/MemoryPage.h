#pragma once

#include "app/preferences/PreferencesPage.h"

class QCheckBox;
class QComboBox;

// What is kept from one run to the next.
class MemoryPage : public PreferencesPage
{
    Q_OBJECT

public:
    explicit MemoryPage(QWidget *parent = nullptr);

    QString title() const override { return tr("Remembered"); }
    void apply() override;
    void showUsual() override;

private:
    QLayout *pagesRow();

    QCheckBox *layoutBox;
    QCheckBox *recentBox;
    QCheckBox *historyBox;
    QCheckBox *windowBox;
    QComboBox *pagesBox;
};
