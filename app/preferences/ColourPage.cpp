#include "app/preferences/ColourPage.h"

#include "app/session/preferences.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>

using namespace Qt::Literals::StringLiterals;

// In the order of preferences::Theme.
ColourPage::ColourPage(QWidget *parent) : PreferencesPage(parent), theme(new QComboBox(this))
{
    theme->setObjectName(u"theme"_s);
    theme->addItems({tr("As the desktop has them"), tr("Light"), tr("Dark")});
    theme->setCurrentIndex(int(preferences::theme()));
    auto *note = new QLabel(tr("The console writes on white in all of them."), this);
    note->setWordWrap(true);
    auto *form = new QFormLayout(this);
    form->addRow(tr("&Colours of the window:"), theme);
    form->addRow(note);
}

void ColourPage::apply() { preferences::setTheme(preferences::Theme(theme->currentIndex())); }

void ColourPage::showUsual() { theme->setCurrentIndex(int(preferences::Theme::Desktop)); }
