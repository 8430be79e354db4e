#include "app/editor/EditorArea.h"

#include "app/editor/EditorPage.h"

#include <QMessageBox>

using namespace Qt::Literals::StringLiterals;

EditorArea::EditorArea(QWidget *parent) : QTabWidget(parent)
{
    setObjectName(u"editorArea"_s);
    setDocumentMode(true);
    setMovable(true);
    setTabsClosable(true);
    connect(this, &QTabWidget::tabCloseRequested, this,
            [this](int index) { closePage(qobject_cast<EditorPage *>(widget(index))); });
    connect(this, &QTabWidget::currentChanged, this, &EditorArea::currentPageChanged);
}

EditorPage *EditorArea::addPage(EditorPage *added, bool bringUp)
{
    EditorPage *shown = page(added->key());
    if (shown) {
        added->deleteLater();
    } else {
        shown = added;
        addTab(shown, QString());
        updateTab(shown);
        connect(shown, &EditorPage::stateChanged, this, [this, shown] { updateTab(shown); });
    }
    if (bringUp) {
        setCurrentWidget(shown);
        shown->setFocus();
    }
    return shown;
}

EditorPage *EditorArea::page(const QString &key) const
{
    for (EditorPage *candidate : pages()) {
        if (candidate->key() == key)
            return candidate;
    }
    return nullptr;
}

EditorPage *EditorArea::currentPage() const { return qobject_cast<EditorPage *>(currentWidget()); }

QList<EditorPage *> EditorArea::pages() const
{
    QList<EditorPage *> all;
    for (int index = 0; index < count(); ++index)
        all.append(qobject_cast<EditorPage *>(widget(index)));
    return all;
}

QList<EditorPage *> EditorArea::modifiedPages() const
{
    QList<EditorPage *> modified = pages();
    modified.removeIf([](const EditorPage *page) { return !page->isModified(); });
    return modified;
}

bool EditorArea::savePage(EditorPage *page)
{
    QString error;
    if (!page->isModified() || page->save(&error))
        return true;
    if (!error.isEmpty())
        QMessageBox::warning(this, tr("Not Saved"), error);
    return false;
}

bool EditorArea::saveAll()
{
    bool saved = true;
    for (EditorPage *page : modifiedPages())
        saved = savePage(page) && saved;
    return saved;
}

bool EditorArea::closePage(EditorPage *page)
{
    if (!mayClose(page))
        return false;
    removeTab(indexOf(page));
    page->deleteLater();
    return true;
}

bool EditorArea::closeAll()
{
    for (EditorPage *page : pages()) {
        if (!closePage(page))
            return false;
    }
    return true;
}

void EditorArea::updateTab(EditorPage *page)
{
    const int index = indexOf(page);
    if (index < 0)
        return;
    QString title = page->title();
    title.replace(u'&', u"&&"_s);
    setTabText(index, page->isModified() ? title + u'*' : title);
    setTabToolTip(index, page->toolTipText());
    if (page == currentPage())
        Q_EMIT currentPageChanged();
}

bool EditorArea::mayClose(EditorPage *page)
{
    if (!page->isModified())
        return true;
    setCurrentWidget(page);
    const auto answer = QMessageBox::question(
        this, tr("Unsaved Changes"),
        tr("\"%1\" has changes that are not saved.").arg(page->title()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save)
        return savePage(page);
    return answer == QMessageBox::Discard;
}
