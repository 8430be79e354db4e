#include "app/window/scriptfiles.h"

#include "app/messages/messages.h"

#include <MorvalenCore/EditorManager.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QInputDialog>

using namespace Qt::Literals::StringLiterals;

namespace scriptfiles {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(scriptfiles)
};

// Why a name below the folder of scripts cannot be used; empty when it can.
QString problemOf(const QString &name, const QString &path)
{
    const QString clean = QDir::cleanPath(name);
    if (QDir::isAbsolutePath(clean) || clean == u".."_s || clean.startsWith(u"../"_s))
        return Texts::tr("\"%1\" is not below the folder of scripts.").arg(name);
    const QFileInfo file(path);
    if (file.exists() || file.isSymLink())
        return Texts::tr("There is a script \"%1\" already.").arg(clean);
    if (!QDir().mkpath(file.path()))
        return Texts::tr("The folder \"%1\" cannot be made.").arg(file.path());
    return {};
}

} // namespace

QString askForNew(QWidget *window, const QString &folder, const QString &title)
{
    const QString typed =
        QInputDialog::getText(window, title, Texts::tr("Name of the script:")).trimmed();
    if (typed.isEmpty())
        return {};
    const QString name = typed.endsWith(u".tcl"_s) ? typed : typed + u".tcl"_s;
    const QString path = QDir::cleanPath(folder + u'/' + name);
    const QString problem = problemOf(name, path);
    if (problem.isEmpty())
        return path;
    messages::warn(window, title, {problem});
    return {};
}

void edit(QWidget *window, const QString &script)
{
    QString error;
    if (!MorvalenCore::EditorManager::instance()->createEditorForPath(script, &error, QString(),
                                                                      true, false))
        messages::warn(window, Texts::tr("Not Opened"), {error});
}

} // namespace scriptfiles
