#include "app/file/FileMenu.h"

#include "app/calls/chosendesign.h"
#include "app/calls/running.h"
#include "app/editor/EditorActions.h"
#include "app/editor/EditorArea.h"
#include "app/file/closing.h"
#include "app/file/filedialogs.h"
#include "app/file/NewDesignDialog.h"
#include "app/file/opening.h"
#include "app/file/ProjectMenu.h"
#include "app/file/RecentMenu.h"
#include "app/file/SaveActions.h"
#include "app/messages/messages.h"

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;

FileMenu::FileMenu(EditorArea *editors, QWidget *theWindow)
    : QMenu(tr("&File"), theWindow),
      window(theWindow),
      saving(new SaveActions(editors, this)),
      pages(editors->editorActions())
{
    setObjectName(u"fileMenu"_s);
    addDesignActions();
    addSeparator();
    addAction(saving->saveAction());
    addAction(saving->saveAllAction());
    addPageActions();
    closeAction = addAction(tr("Close &Design"));
    closeAction->setObjectName(u"closeDesign"_s);
    connect(closeAction, &QAction::triggered, this, &FileMenu::closeDesign);
    addSeparator();
    addMenu(new ProjectMenu(window));
    addSeparator();
    QAction *preferences = addAction(tr("Pre&ferences..."), QKeySequence(Qt::CTRL | Qt::Key_Comma));
    preferences->setMenuRole(QAction::PreferencesRole);
    connect(preferences, &QAction::triggered, this, &FileMenu::preferencesWanted);
    addSeparator();
    QAction *quit = addAction(tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q));
    quit->setObjectName(u"quit"_s);
    quit->setMenuRole(QAction::QuitRole);
    connect(quit, &QAction::triggered, this, &FileMenu::quitWanted);
    connect(this, &QMenu::aboutToShow, this, &FileMenu::showState);
    connect(this, &QMenu::aboutToHide, this, &FileMenu::enable);
}

void FileMenu::addDesignActions()
{
    QAction *create = addAction(tr("&New Design..."), QKeySequence::New);
    create->setObjectName(u"newDesign"_s);
    connect(create, &QAction::triggered, this, &FileMenu::newDesign);
    QAction *open = addAction(tr("&Open..."), QKeySequence::Open);
    open->setObjectName(u"open"_s);
    connect(open, &QAction::triggered, this,
            [this] { opening::open(window, filedialogs::filesToOpen(window)); });
    auto *recent = new RecentMenu(this);
    connect(recent, &RecentMenu::chosen, this,
            [this](const QString &file) { opening::open(window, {file}); });
    addMenu(recent);
    changing = {create, open, recent->menuAction()};
}

// Of the page in front; they belong to the editors.
void FileMenu::addPageActions()
{
    pages->letPagesReachOut();
    addAction(pages->action(EditorPage::SaveCopy));
    addSeparator();
    for (const auto command : {EditorActions::NextPage, EditorActions::PreviousPage})
        addAction(pages->action(command));
    addSeparator();
    for (const auto command : {EditorActions::Close, EditorActions::CloseAll})
        addAction(pages->action(command));
}

// Pages that nobody sees are not closed or gone through.
void FileMenu::showPageState()
{
    pages->update();
    if (pages->widget()->isVisible())
        return;
    pages->action(EditorPage::SaveCopy)->setEnabled(false);
    for (const auto command : {EditorActions::NextPage, EditorActions::PreviousPage,
                               EditorActions::Close, EditorActions::CloseAll})
        pages->action(command)->setEnabled(false);
}

void FileMenu::showState()
{
    showPageState();
    saving->showState();
    const Status free = running::check();
    for (QAction *action : std::as_const(changing)) {
        action->setEnabled(free.isOk());
        action->setStatusTip(free.text());
    }
    const IDesign *design = chosendesign::get();
    closeAction->setEnabled(design && free.isOk());
    closeAction->setText(design ? tr("Close &Design \"%1\"").arg(chosendesign::menuName(design))
                                : tr("Close &Design"));
}

// The keys of the entries answer while the menu is closed, whatever it showed last.
void FileMenu::enable()
{
    saving->enable();
    pages->update();
    for (QAction *action : std::as_const(changing))
        action->setEnabled(true);
}

void FileMenu::newDesign()
{
    if (const Status free = running::check(); !free.isOk())
        return messages::tell(free.text());
    NewDesignDialog(window).exec();
}

void FileMenu::closeDesign()
{
    if (const IDesign *design = chosendesign::get())
        closing::closeDesign(window, design->id(u"."_s));
}
