#pragma once

#include "app/preferences/PreferencesPage.h"

class QComboBox;

// The colours of the window.
class ColourPage : public PreferencesPage
{
    Q_OBJECT

public:
    explicit ColourPage(QWidget *parent = nullptr);

    QString title() const override { return tr("Colours"); }
    void apply() override;
    void showUsual() override;

private:
    QComboBox *theme;
};
