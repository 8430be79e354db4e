#include "app/preferences/EditingPage.h"

#include "app/editor/EditorSettings.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QSpinBox>

using namespace Qt::Literals::StringLiterals;

EditingPage::EditingPage(QWidget *parent)
    : PreferencesPage(parent),
      width(new QSpinBox(this)),
      spaces(new QCheckBox(tr("&Indent with spaces"), this)),
      asText(new QCheckBox(tr("Indent as the &file does where it has indented lines"), this))
{
    const EditorSettings *settings = EditorSettings::instance();
    width->setObjectName(u"tabWidth"_s);
    width->setRange(1, EditorSettings::widestTab);
    width->setSuffix(tr(" columns"));
    width->setValue(settings->indentation().width);
    spaces->setObjectName(u"indentWithSpaces"_s);
    spaces->setChecked(settings->indentation().hasSpaces);
    asText->setObjectName(u"indentAsFile"_s);
    asText->setChecked(settings->followsText());
    auto *form = new QFormLayout(this);
    form->addRow(tr("&Tabs and steps take:"), width);
    form->addRow(spaces);
    form->addRow(asText);
}

void EditingPage::apply()
{
    EditorSettings *settings = EditorSettings::instance();
    settings->setIndentation({spaces->isChecked(), width->value()});
    settings->setFollowsText(asText->isChecked());
}

void EditingPage::showUsual()
{
    width->setValue(Indentation().width);
    spaces->setChecked(Indentation().hasSpaces);
    asText->setChecked(true);
}
