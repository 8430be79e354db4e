#pragma once

#include "app/preferences/PreferencesPage.h"

class QCheckBox;
class QSpinBox;

// How the lines of texts are indented.
class EditingPage : public PreferencesPage
{
    Q_OBJECT

public:
    explicit EditingPage(QWidget *parent = nullptr);

    QString title() const override { return tr("Editing"); }
    void apply() override;
    void showUsual() override;

private:
    QSpinBox *width;
    QCheckBox *spaces;
    QCheckBox *asText;
};
