#pragma once

#include <QWidget>

// A page of the preferences. It shows what is set when it is made.
class PreferencesPage : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    virtual QString title() const = 0;

    // Sets what the page shows.
    virtual void apply() = 0;

    // Shows the usual values, which are not set before apply().
    virtual void showUsual() = 0;
};
