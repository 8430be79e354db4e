#include "app/preferences/MemoryPage.h"

#include "app/session/preferences.h"
#include "app/session/RecentFiles.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

QCheckBox *box(const QString &text, const QString &name, preferences::Memory memory,
               QWidget *parent)
{
    auto *made = new QCheckBox(text, parent);
    made->setObjectName(name);
    made->setChecked(preferences::remembers(memory));
    return made;
}

} // namespace

MemoryPage::MemoryPage(QWidget *parent)
    : PreferencesPage(parent),
      layoutBox(box(tr("The &layout of the window"), u"rememberLayout"_s, preferences::WindowLayout,
                    this)),
      recentBox(box(tr("The files that were &opened"), u"rememberRecent"_s,
                    preferences::RecentFiles, this)),
      historyBox(box(tr("The console's &history"), u"rememberHistory"_s,
                     preferences::ConsoleHistory, this)),
      windowBox(box(tr("What is open in the &window"), u"rememberWindow"_s, preferences::OpenThings,
                    this)),
      pagesBox(new QComboBox(this))
{
    auto *note = new QLabel(tr("The history is kept in a file of the session folder that only you "
                               "can read. It holds commands as they were typed."),
                            this);
    note->setWordWrap(true);
    note->setEnabled(historyBox->isChecked());
    connect(historyBox, &QCheckBox::toggled, note, &QWidget::setEnabled);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Keep from one run to the next:"), this));
    for (QWidget *widget :
         std::initializer_list<QWidget *> {layoutBox, windowBox, recentBox, historyBox})
        layout->addWidget(widget);
    layout->addWidget(note);
    layout->addLayout(pagesRow());
    layout->addStretch();
}

// In the order of PagesBeforeBuild.
QLayout *MemoryPage::pagesRow()
{
    pagesBox->setObjectName(u"pagesBeforeBuild"_s);
    pagesBox->addItems({tr("Ask"), tr("Save them"), tr("Leave them as they are")});
    pagesBox->setCurrentIndex(int(preferences::pagesBeforeBuild()));
    auto *label = new QLabel(tr("&Unsaved pages before a build:"), this);
    label->setBuddy(pagesBox);
    auto *row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(pagesBox);
    row->addStretch();
    return row;
}

void MemoryPage::apply()
{
    preferences::setRemembers(preferences::OpenThings, windowBox->isChecked());
    preferences::setPagesBeforeBuild(preferences::PagesBeforeBuild(pagesBox->currentIndex()));
    preferences::setRemembers(preferences::WindowLayout, layoutBox->isChecked());
    preferences::setRemembers(preferences::RecentFiles, recentBox->isChecked());
    preferences::setRemembers(preferences::ConsoleHistory, historyBox->isChecked());
    if (!recentBox->isChecked())
        RecentFiles::clear();
}

void MemoryPage::showUsual()
{
    layoutBox->setChecked(true);
    recentBox->setChecked(true);
    historyBox->setChecked(false);
    windowBox->setChecked(true);
    pagesBox->setCurrentIndex(int(preferences::PagesBeforeBuild::Ask));
}
