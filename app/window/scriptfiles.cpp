#include "app/window/scriptfiles.h"

#include "app/messages/messages.h"

#include <MorvalenCore/EditorManager.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QInputDialog>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace scriptfiles {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(scriptfiles)
};

// Whether a name below the folder of scripts can be used; makes the folders on the way to it.
Status prepare(const QString &name, const QString &path)
{
    const QString clean = QDir::cleanPath(name);
    if (QDir::isAbsolutePath(clean) || clean == u".."_s || clean.startsWith(u"../"_s))
        return Status::invalidArgument(
            Texts::tr("\"%1\" is not below the folder of scripts.").arg(name));
    const QFileInfo file(path);
    if (file.exists() || file.isSymLink())
        return Status::alreadyExists(Texts::tr("There is a script \"%1\" already.").arg(clean));
    if (!QDir().mkpath(file.path()))
        return Status::io(Texts::tr("The folder \"%1\" cannot be made.").arg(file.path()));
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
    const Status prepared = prepare(name, path);
    if (prepared.isOk())
        return path;
    messages::warn(window, title, {prepared.text()});
    return {};
}

void edit(QWidget *window, const QString &script)
{
    const auto opened =
        MorvalenCore::EditorManager::instance()->tryCreateEditorForPath(script, {}, true, false);
    if (!opened.isOk())
        messages::warn(window, Texts::tr("Not Opened"), {opened.status().text()});
}

} // namespace scriptfiles
