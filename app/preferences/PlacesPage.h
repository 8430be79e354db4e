#pragma once

#include "app/preferences/PreferencesPage.h"

#include <QMap>

class QCheckBox;
class QFormLayout;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;

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
    void addProjects(QFormLayout *form);
    QStringList targetFolders() const;
    void chooseFolder();

    QMap<QString, QString> poolDepths() const;

    QLineEdit *launcher;
    QSpinBox *jobs;
    QCheckBox *keepGoing;
    QPlainTextEdit *pools;
    QPlainTextEdit *targets;
    QLineEdit *projects;
};
