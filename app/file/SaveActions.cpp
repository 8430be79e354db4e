#include "app/file/SaveActions.h"

#include "app/calls/chosendesign.h"
#include "app/editor/EditorActions.h"
#include "app/editor/EditorArea.h"
#include "app/editor/EditorPage.h"
#include "app/file/designsaving.h"
#include "app/messages/messages.h"

#include <Qtilities/ProjectManager.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::ProjectManagement::ProjectManager;

namespace {

bool hasUnsavedProject()
{
    const ProjectManager *manager = ProjectManager::instance();
    return !manager->currentProjectFileName().isEmpty() && manager->isCurrentProjectModified();
}

} // namespace

SaveActions::SaveActions(EditorArea *area, QObject *parent)
    : QObject(parent),
      editors(area),
      save(new QAction(tr("&Save"), this)),
      saveAll(new QAction(tr("Save A&ll"), this))
{
    save->setObjectName(u"save"_s);
    save->setShortcut(QKeySequence::Save);
    saveAll->setObjectName(u"saveAll"_s);
    saveAll->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    for (const auto command : {EditorActions::Save, EditorActions::SaveAll})
        editors->editorActions()->action(command)->setShortcuts(QList<QKeySequence>());
    connect(save, &QAction::triggered, this, &SaveActions::saveFront);
    connect(saveAll, &QAction::triggered, this, &SaveActions::saveEverything);
}

bool SaveActions::isAboutPage() const
{
    const EditorPage *page = editors->currentPage();
    return page && page->isModified() && editors->isVisible();
}

void SaveActions::showState()
{
    const IDesign *design = chosendesign::get();
    const bool aboutPage = isAboutPage();
    QString title;
    if (aboutPage)
        title = editors->currentPage()->title();
    else if (design)
        title = design->name();
    title.replace(u'&', u"&&"_s);
    save->setText(title.isEmpty() ? tr("&Save") : tr("&Save \"%1\"").arg(title));
    save->setEnabled(aboutPage || (design && design->isModified()));
    saveAll->setEnabled(!editors->modifiedPages().isEmpty() || hasUnsavedProject()
                        || !designsaving::modifiedDesigns().isEmpty());
}

void SaveActions::enable()
{
    save->setEnabled(true);
    saveAll->setEnabled(true);
}

void SaveActions::saveFront()
{
    if (isAboutPage()) {
        editors->savePage(editors->currentPage());
        return;
    }
    IDesign *design = chosendesign::get();
    if (design && design->isModified())
        designsaving::saveOrTell(editors->window(), {design->id(u"."_s)});
    else
        messages::tell(tr("There are no unsaved changes here"));
}

void SaveActions::saveEverything()
{
    // A page may belong to a design, so that pages go first.
    editors->saveAll();
    designsaving::saveOrTell(editors->window(), designsaving::modifiedDesigns());
    if (hasUnsavedProject())
        designsaving::saveProject(editors->window());
}
