#include "app/preferences/FontPage.h"

#include "app/editor/EditorSettings.h"
#include "app/preferences/consolefont.h"
#include "app/preferences/FontChoice.h"
#include "app/session/preferences.h"

#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

std::optional<QFont> editorFont()
{
    const QFont font = EditorSettings::instance()->font();
    return font == EditorSettings::defaultFont() ? std::nullopt : std::optional(font);
}

} // namespace

FontPage::FontPage(QWidget *parent)
    : PreferencesPage(parent),
      console(new FontChoice(tr("&Console in a font of your own"), consolefont::usual(),
                             preferences::consoleFont(), this)),
      editors(new FontChoice(tr("&Editors in a font of your own"), EditorSettings::defaultFont(),
                             editorFont(), this))
{
    console->setObjectName(u"consoleFont"_s);
    editors->setObjectName(u"editorFont"_s);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(console);
    layout->addWidget(editors);
    layout->addStretch();
}

void FontPage::apply()
{
    preferences::setConsoleFont(console->chosen());
    EditorSettings::instance()->setFont(editors->chosen().value_or(EditorSettings::defaultFont()));
}

void FontPage::showUsual()
{
    console->setChecked(false);
    editors->setChecked(false);
}
