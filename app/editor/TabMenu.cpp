#include "app/editor/TabMenu.h"

#include "app/editor/EditorArea.h"
#include "app/editor/EditorPage.h"
#include "app/messages/messages.h"

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>

using namespace Qt::Literals::StringLiterals;

TabMenu::TabMenu(EditorArea *area, EditorPage *page) : QMenu(area)
{
    setObjectName(u"tabMenu"_s);
    const QString path = page->filePath();
    addAction(tr("&Close"), page, [area, page] { area->closePage(page); });
    QAction *others =
        addAction(tr("Close &Others"), page, [area, page] { area->closeOthers(page); });
    others->setEnabled(area->count() > 1);
    addAction(tr("Close &All"), area, &EditorArea::closeAll);
    addSeparator();
    QAction *copy = addAction(tr("Copy &Path"), this, [path] {
        QGuiApplication::clipboard()->setText(QDir::toNativeSeparators(path));
    });
    QAction *show = addAction(tr("Show in &Folder"), this,
                              [path] { messages::showFolder(QFileInfo(path).absolutePath()); });
    copy->setEnabled(!path.isEmpty());
    show->setEnabled(!path.isEmpty());
}
