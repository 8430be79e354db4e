#pragma once

#include "app/preferences/PreferencesPage.h"

class QLineEdit;

// Where projects are kept, and by whom build steps are run.
class PlacesPage : public PreferencesPage
{
    Q_OBJECT

public:
    explicit PlacesPage(QWidget *parent = nullptr);

    QString title() const override { return tr("Builds and Projects"); }
    void apply() override;
    void showUsual() override;

private:
    QLayout *projectsRow();
    void chooseFolder();

    QLineEdit *launcher;
    QLineEdit *projects;
};
