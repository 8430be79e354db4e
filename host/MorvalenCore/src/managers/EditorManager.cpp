#include <MorvalenCore/EditorManager.h>

#include <Qtilities/Replaceable.h>

namespace MorvalenCore {

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace {

Qtilities::Core::Replaceable<EditorManager> &slot()
{
    static auto *const theSlot = new Qtilities::Core::Replaceable<EditorManager>;
    return *theSlot;
}

} // namespace

EditorManager::EditorManager(QObject *parent) : QObject(parent) { }

EditorManager::~EditorManager() = default;

EditorManager *EditorManager::instance() { return slot().get(); }

void EditorManager::setInstance(EditorManager *manager) { slot().set(manager); }

Result<QWidget *> EditorManager::tryCreateEditorForPath(const QString &path, const QString &, bool,
                                                        bool)
{
    return Status::unsupported(u"There is no editor that opens \"%1\""_s.arg(path));
}

QWidget *EditorManager::createEditorForPath(const QString &path, QString *error,
                                            const QString &mode, bool bringUp, bool readOnly)
{
    return tryCreateEditorForPath(path, mode, bringUp, readOnly).valueOr(nullptr, error);
}

} // namespace MorvalenCore
