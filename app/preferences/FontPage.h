#pragma once

#include "app/preferences/PreferencesPage.h"

class FontChoice;

// The fonts of the console and of the editors.
class FontPage : public PreferencesPage
{
    Q_OBJECT

public:
    explicit FontPage(QWidget *parent = nullptr);

    QString title() const override { return tr("Fonts"); }
    void apply() override;
    void showUsual() override;

private:
    FontChoice *console;
    FontChoice *editors;
};
