#include "app/preferences/PreferencesDialog.h"

#include "app/messages/messages.h"
#include "app/preferences/ColourPage.h"
#include "app/preferences/EditingPage.h"
#include "app/preferences/FontPage.h"
#include "app/preferences/MemoryPage.h"
#include "app/preferences/PlacesPage.h"
#include "app/session/preferences.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;

PreferencesDialog::PreferencesDialog(QWidget *parent) : QDialog(parent), tabs(new QTabWidget(this))
{
    setObjectName(u"preferencesDialog"_s);
    setWindowTitle(tr("Preferences"));
    add(new FontPage(this));
    add(new MemoryPage(this));
    add(new PlacesPage(this));
    add(new EditingPage(this));
    add(new ColourPage(this));
    auto *buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Apply
                                 | QDialogButtonBox::Cancel | QDialogButtonBox::RestoreDefaults,
                             this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this,
            &PreferencesDialog::apply);
    connect(buttons->button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, this,
            [this] { pages.at(tabs->currentIndex())->showUsual(); });
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addWidget(buttons);
}

void PreferencesDialog::add(PreferencesPage *page)
{
    pages.append(page);
    tabs->addTab(page, page->title());
}

QStringList PreferencesDialog::pageTitles()
{
    const PreferencesDialog dialog;
    QStringList titles;
    for (const PreferencesPage *page : dialog.pages)
        titles.append(page->title());
    return titles;
}

void PreferencesDialog::showPage(const QString &title)
{
    for (PreferencesPage *page : std::as_const(pages)) {
        if (page->title() == title)
            tabs->setCurrentWidget(page);
    }
}

void PreferencesDialog::accept()
{
    apply();
    QDialog::accept();
}

void PreferencesDialog::apply()
{
    for (PreferencesPage *page : std::as_const(pages))
        page->apply();
    if (!preferences::isWritable())
        messages::warn(parentWidget(), tr("Not Kept"),
                       {tr("The settings file \"%1\" cannot be written.")
                            .arg(QtilitiesApplication::settingsFileName())});
    Q_EMIT applied();
}
