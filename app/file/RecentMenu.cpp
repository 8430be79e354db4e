#include "app/file/RecentMenu.h"

#include "app/file/shownpath.h"
#include "app/session/RecentFiles.h"

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int mnemonics = 9; // entries that a digit chooses

} // namespace

RecentMenu::RecentMenu(QWidget *parent) : QMenu(tr("Open &Recent"), parent)
{
    setObjectName(u"recentMenu"_s);
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &RecentMenu::rebuild);
    rebuild();
}

void RecentMenu::rebuild()
{
    clear();
    const QStringList designs = RecentFiles::files(RecentFiles::Designs);
    const QStringList projects = RecentFiles::files(RecentFiles::Projects);
    if (designs.isEmpty() && projects.isEmpty()) {
        addAction(tr("No Files Were Opened Yet"))->setEnabled(false);
        return;
    }
    addFiles(designs);
    if (!designs.isEmpty() && !projects.isEmpty())
        addSeparator();
    addFiles(projects);
    addSeparator();
    connect(addAction(tr("&Clear List")), &QAction::triggered, this, [] { RecentFiles::clear(); });
}

void RecentMenu::addFiles(const QStringList &files)
{
    for (const QString &file : files) {
        const qsizetype number = actions().size() + 1;
        QString name = shownPath(file).replace(u'&', u"&&"_s);
        if (number <= mnemonics)
            name = u"&%1  "_s.arg(number) + name;
        QAction *entry = addAction(name);
        entry->setData(file);
        entry->setEnabled(QFileInfo::exists(file));
        connect(entry, &QAction::triggered, this, [this, file] { Q_EMIT chosen(file); });
    }
}
