#include "app/file/closing.h"

#include "app/calls/ChangeOrigins.h"
#include "app/calls/HostCall.h"
#include "app/calls/running.h"
#include "app/file/designsaving.h"
#include "app/journal/journaling.h"
#include "app/messages/messages.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/ProjectManager.h>

#include <QCoreApplication>
#include <QDir>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;
using Qtilities::ProjectManagement::ProjectManager;

namespace closing {

namespace {

// A question that grows beyond the screen has no buttons to press.
constexpr int namedFiles = 12;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(closing)
};

// Where the changes of the designs go, one file a line, and who alone has made them.
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
        const QString file = QDir::toNativeSeparators(design->componentFileName());
        const QString only = ChangeOrigins::only(id);
        files.append(only.isEmpty() ? file : Texts::tr("%1 (changed only by %2)").arg(file, only));
    }
    return files.join(u'\n');
}

int answerAbout(QWidget *parent, const QStringList &modified)
{
    const IDesign *first = DesignManager::instance()->design(modified.first());
    const bool isOne = modified.size() == 1;
    QMessageBox box(QMessageBox::Question, Texts::tr("Unsaved Changes"),
                    isOne ? Texts::tr("The design \"%1\" has changes that are not saved.")
                                .arg(first ? first->name() : modified.first())
                          : Texts::tr("%n designs have changes that are not saved.", nullptr,
                                      int(modified.size())),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, parent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(Texts::tr("Saving writes them to:") + u'\n' + filesOf(modified));
    box.button(QMessageBox::Save)->setText(Texts::tr("&Save and Close"));
    box.button(QMessageBox::Discard)
        ->setText(isOne ? Texts::tr("&Discard") : Texts::tr("&Discard All"));
    box.setDefaultButton(QMessageBox::Save);
    box.setEscapeButton(QMessageBox::Cancel);
    return box.exec();
}

bool drop(QWidget *parent, const QStringList &designIds)
{
    HostCall attempt(parent, Texts::tr("Not Closed"));
    bool isDone = true;
    for (const QString &id : designIds) {
        IDesign *design = DesignManager::instance()->design(id);
        if (!design || !design->isModified())
            continue;
        // A file that is no good cannot be read again.
        const Status reloaded = design->reloadComponentFile();
        if (reloaded.isOk())
            journaling::givenUp(id);
        else
            isDone = attempt.takeAndLog(DesignManager::instance()->tryDiscardDesign(id)) && isDone;
    }
    return isDone;
}

} // namespace

bool settleDesigns(QWidget *parent, const QStringList &designIds, GivenUp *givenUp)
{
    QStringList modified = designsaving::modifiedDesigns();
    modified.removeIf([&](const QString &id) { return !designIds.contains(id); });
    if (modified.isEmpty())
        return true;
    const int answer = answerAbout(parent, modified);
    if (answer == QMessageBox::Discard)
        givenUp->designIds = modified;
    if (answer != QMessageBox::Save)
        return answer == QMessageBox::Discard;
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

bool settleProject(QWidget *parent, GivenUp *givenUp)
{
    givenUp->project = true;
    const ProjectManager *manager = ProjectManager::instance();
    const QString fileName = manager->currentProjectFileName();
    if (!manager->isCurrentProjectModified())
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

bool carryOut(QWidget *parent, const GivenUp &givenUp)
{
    const bool isDone = givenUp.designIds.isEmpty() || drop(parent, givenUp.designIds);
    if (isDone && givenUp.project && ProjectManager::instance()->isCurrentProjectModified()) {
        journaling::remark(Texts::tr("The changes of the project \"%1\" are given up")
                               .arg(ProjectManager::instance()->currentProjectName()));
        ProjectManager::instance()->dropChanges();
    }
    return isDone;
}

bool closeDesign(QWidget *parent, const QString &designId)
{
    GivenUp givenUp;
    const IDesign *design = DesignManager::instance()->design(designId);
    const QPointer<const QObject> object = design ? design->objectBase() : nullptr;
    if (!settleDesigns(parent, {designId}, &givenUp))
        return false;
    // While the user was asked, a script may have begun.
    if (const Status free = running::check(); !free.isOk()) {
        messages::warn(parent, Texts::tr("Not Closed"), {free.text()});
        return false;
    }
    if (!carryOut(parent, givenUp))
        return false;
    // What was given up may have been another id.
    const auto *left = qobject_cast<const IDesign *>(object.data());
    const QString id = left ? left->id(u"."_s) : QString();
    if (!DesignManager::instance()->design(id))
        return true;
    HostCall attempt(parent, Texts::tr("Not Closed"));
    const bool isClosed = attempt.takeAndLog(DesignManager::instance()->tryCloseDesign(id, false));
    if (isClosed)
        journaling::closed(id, false);
    return isClosed;
}

} // namespace closing
