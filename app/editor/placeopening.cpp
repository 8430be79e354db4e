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
    QString error;
    QWidget *opened =
        EditorManager::instance()->createEditorForPath(path, &error, QString(), true, false);
    const auto *page = qobject_cast<TextPage *>(opened);
    if (!page)
        return opened ? Status() : Status::notFound(error);
    if (line < 1)
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
