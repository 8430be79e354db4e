#pragma once

#include "app/preferences/PreferencesPage.h"

class QLineEdit;
class QPlainTextEdit;

// Where projects are kept, by whom build steps are run, and where they may write.
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
    QStringList targetFolders() const;
    void chooseFolder();

    QLineEdit *launcher;
    QPlainTextEdit *targets;
    QLineEdit *projects;
};
