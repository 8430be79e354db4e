#include "app/file/closing.h"

#include "app/calls/HostCall.h"
#include "app/calls/running.h"
#include "app/file/designsaving.h"
#include "app/messages/messages.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/ProjectManager.h>

#include <QCoreApplication>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::ProjectManagement::ProjectManager;

namespace closing {

namespace {

// A question that grows beyond the screen has no buttons to press.
constexpr int namedFiles = 12;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(closing)
};

// Where the changes of the designs go, one file a line.
QString filesOf(const QStringList &designIds)
{
    QStringList files;
    for (const QString &id : designIds) {
        const IDesign *design = DesignManager::instance()->design(id);
        if (!design || design->componentFileName().isEmpty())
            continue;
        if (files.size() == namedFiles) {
            files.append(Texts::tr("and others"));
            break;
        }
        files.append(QDir::toNativeSeparators(design->componentFileName()));
    }
    return files.join(u'\n');
}

bool mayBeSaved(QWidget *parent, const QStringList &modified)
{
    const IDesign *first = DesignManager::instance()->design(modified.first());
    QMessageBox box(
        QMessageBox::Question, Texts::tr("Unsaved Changes"),
        modified.size() == 1
            ? Texts::tr("The design \"%1\" has changes that are not saved.")
                  .arg(first ? first->name() : modified.first())
            : Texts::tr("%1 designs have changes that are not saved.").arg(modified.size()),
        QMessageBox::Save | QMessageBox::Cancel, parent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(Texts::tr("Closing saves them in:") + u'\n' + filesOf(modified));
    box.button(QMessageBox::Save)->setText(Texts::tr("&Save and Close"));
    box.setDefaultButton(QMessageBox::Save);
    box.setEscapeButton(QMessageBox::Cancel);
    return box.exec() == QMessageBox::Save;
}

} // namespace

bool settleDesigns(QWidget *parent, const QStringList &designIds)
{
    QStringList modified = designsaving::modifiedDesigns();
    modified.removeIf([&](const QString &id) { return !designIds.contains(id); });
    if (modified.isEmpty())
        return true;
    if (!mayBeSaved(parent, modified))
        return false;
    const QString reasons = designsaving::save(modified);
    return reasons.isEmpty()
        || messages::confirm(
               parent, Texts::tr("Not Saved"), Texts::tr("Not everything could be saved."),
               reasons + u"\n\n"_s
                   + Texts::tr(
                       "When you close anyway, what was not saved of a design with a component "
                       "file goes to a copy in the backups folder:")
                   + u'\n'
                   + QDir::toNativeSeparators(
                       DesignManager::instance()->path(DesignManager::BackupsPath)),
               Texts::tr("Close &Anyway"));
}

bool settleProject(QWidget *parent, bool closingSaves)
{
    const ProjectManager *manager = ProjectManager::instance();
    const QString fileName = manager->currentProjectFileName();
    if (!manager->isCurrentProjectModified() || (closingSaves && !fileName.isEmpty()))
        return true;
    QMessageBox box(
        QMessageBox::Question, Texts::tr("Unsaved Project"),
        fileName.isEmpty()
            ? Texts::tr("The project \"%1\" was never saved.").arg(manager->currentProjectName())
            : Texts::tr("The project \"%1\" has changes that are not saved.")
                  .arg(manager->currentProjectName()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, parent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(Texts::tr("Without saving, the list of its designs is lost. The designs "
                                     "themselves are saved on their own."));
    box.setDefaultButton(QMessageBox::Save);
    box.setEscapeButton(QMessageBox::Cancel);
    const int answer = box.exec();
    return answer == QMessageBox::Discard
        || (answer == QMessageBox::Save && designsaving::saveProject(parent));
}

bool closeDesign(QWidget *parent, const QString &designId)
{
    if (!settleDesigns(parent, {designId}))
        return false;
    // While the user was asked, a script may have begun.
    if (const QString refusal = running::refusal(); !refusal.isEmpty()) {
        messages::warn(parent, Texts::tr("Not Closed"), {refusal});
        return false;
    }
    HostCall attempt(parent, Texts::tr("Not Closed"));
    return !DesignManager::instance()->design(designId)
        || attempt.takeAndLog(DesignManager::instance()->tryCloseDesign(designId, false));
}

} // namespace closing
