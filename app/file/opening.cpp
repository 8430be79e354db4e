#include "app/file/opening.h"

#include "app/calls/HostCall.h"
#include "app/calls/openfile.h"
#include "app/calls/running.h"
#include "app/file/closing.h"
#include "app/messages/messages.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/ProjectManager.h>

#include <QCoreApplication>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using Qtilities::Core::Status;
using Qtilities::ProjectManagement::ProjectManager;

namespace opening {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(opening)
};

bool isFree(QWidget *parent)
{
    const Status free = running::check();
    if (!free.isOk())
        messages::warn(parent, Texts::tr("Not Now"), {free.text()});
    return free.isOk();
}

} // namespace

void open(QWidget *parent, const QStringList &files)
{
    QStringList reasons;
    for (const QString &file : files) {
        if (isProjectFile(file) ? !mayCloseProject(parent) : !isTextFile(file) && !isFree(parent))
            return;
        const Status opened = openFile(file);
        if (!opened.isOk())
            reasons.append(HostCall::linesOf(opened).join(u'\n'));
    }
    if (!reasons.isEmpty())
        messages::warn(parent, Texts::tr("Not Opened"), reasons);
}

bool mayCloseProject(QWidget *parent)
{
    if (!isFree(parent))
        return false;
    if (!ProjectManager::instance()->currentProject())
        return true;
    closing::GivenUp givenUp;
    return closing::settleDesigns(parent, DesignManager::instance()->openDesignIds(), &givenUp)
        && closing::settleProject(parent, &givenUp)
        // While the user was asked, a script may have begun.
        && isFree(parent) && closing::carryOut(parent, givenUp);
}

} // namespace opening
