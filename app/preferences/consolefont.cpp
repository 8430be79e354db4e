#include "app/preferences/consolefont.h"

#include "app/session/preferences.h"
#include "console/QConsole.h"

using namespace Qt::Literals::StringLiterals;

namespace consolefont {

QFont usual()
{
    QFont font;
    font.setFamily(u"Courier"_s);
    font.setStyleHint(QFont::TypeWriter, QFont::PreferNoShaping);
    return font;
}

void apply(QConsole *console)
{
    QFont wanted = preferences::consoleFont().value_or(usual());
    wanted.setStyleHint(QFont::TypeWriter, QFont::PreferNoShaping);
    const QFont shown = console->currentFont();
    if (wanted.family() != shown.family() || wanted.pointSize() != shown.pointSize())
        console->setFont(wanted);
}

} // namespace consolefont
