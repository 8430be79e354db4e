#include "app/help/HelpDock.h"

#include "app/help/HelpBrowser.h"
#include "app/help/ManualBrowser.h"

using namespace Qt::Literals::StringLiterals;

HelpDock::HelpDock(QWidget *parent) : QDockWidget(tr("Manual"), parent)
{
    setObjectName(u"helpDock"_s);
}

void HelpDock::showCommand(const QString &word)
{
    help()->showCommand(word);
    show();
    raise();
}

void HelpDock::showEvent(QShowEvent *event)
{
    help();
    QDockWidget::showEvent(event);
}

HelpBrowser *HelpDock::help()
{
    if (!made) {
        made = new HelpBrowser(this);
        setWidget(made);
        Q_EMIT opened(made->browser());
    }
    return made;
}
