#include <MorvalenCore/EditorManager.h>

#include <Qtilities/Replaceable.h>

namespace MorvalenCore {

namespace {

using namespace Qt::Literals::StringLiterals;

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

QWidget *EditorManager::createEditorForPath(const QString &path, QString *error, const QString &,
                                            bool, bool)
{
    if (error)
        *error = u"There is no editor that opens \"%1\""_s.arg(path);
    return nullptr;
}

} // namespace MorvalenCore
