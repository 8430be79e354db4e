#include "app/editor/placeopening.h"

#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"

#include <MorvalenCore/EditorManager.h>

#include <QCoreApplication>

using MorvalenCore::EditorManager;
using Qtilities::Core::Status;

namespace placeopening {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(placeopening)
};

} // namespace

Status show(const QString &path, int line, int column)
{
    const auto opened =
        EditorManager::instance()->tryCreateEditorForPath(path, QString(), true, false);
    if (!opened.isOk())
        return opened.status();
    const auto *page = qobject_cast<TextPage *>(opened.value());
    if (!page || line < 1)
        return {};
    TextEdit *edit = page->textEdit();
    edit->goTo(line, column);
    if (line <= edit->blockCount())
        return {};
    return Status::notFound(Texts::tr("\"%1\" has no line %2; it ends at line %3.")
                                .arg(page->title())
                                .arg(line)
                                .arg(edit->blockCount()));
}

} // namespace placeopening
