#include "app/editor/EditorArea.h"

#include "app/editor/EditorActions.h"
#include "app/editor/EditorPage.h"
#include "app/editor/EditorTabBar.h"
#include "app/editor/TabMenu.h"
#include "app/editor/unsavedchanges.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QPainter>
#include <QPointer>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

EditorArea::EditorArea(QWidget *parent) : QTabWidget(parent), tabs(new EditorTabBar(this))
{
    setObjectName(u"editorArea"_s);
    setTabBar(tabs);
    setDocumentMode(true);
    setMovable(true);
    setTabsClosable(true);
    setElideMode(Qt::ElideNone);
    setUsesScrollButtons(true);
    setFocusPolicy(Qt::StrongFocus);
    theActions = new EditorActions(this);
    connect(this, &QTabWidget::tabCloseRequested, this,
            [this](int index) { closePage(qobject_cast<EditorPage *>(widget(index))); });
    connect(this, &QTabWidget::currentChanged, this, &EditorArea::currentPageChanged);
    connect(tabs, &EditorTabBar::menuRequested, this, &EditorArea::showMenu);
}

// The pages go while the area is still whole, since they speak to it.
EditorArea::~EditorArea()
{
    disconnect(this, nullptr, nullptr, nullptr);
    qDeleteAll(pages());
}

EditorPage *EditorArea::addPage(EditorPage *added, bool bringUp)
{
    EditorPage *shown = page(added->key());
    if (shown && shown != added) {
        added->deleteLater();
    } else if (!shown) {
        shown = added;
        addTab(shown, QString());
        connect(shown, &EditorPage::stateChanged, this, [this, shown] { updateTab(shown); });
        connect(shown, &EditorPage::commandsChanged, theActions, &EditorActions::update);
    }
    if (bringUp)
        bringUpPage(shown);
    return shown;
}

void EditorArea::bringUpPage(EditorPage *page)
{
    setCurrentWidget(page);
    page->setFocus();
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
    if (!page->isModified())
        return true;
    const Qtilities::Core::Status saved = page->save();
    if (saved.isOk())
        return true;
    setCurrentWidget(page);
    if (!saved.text().isEmpty())
        QMessageBox::warning(this, tr("Not Saved"), saved.text());
    return false;
}

bool EditorArea::saveAll()
{
    bool saved = true;
    for (EditorPage *page : modifiedPages())
        saved = savePage(page) && saved;
    return saved;
}

bool EditorArea::closePage(EditorPage *page) { return closePages({page}); }

bool EditorArea::closeOthers(EditorPage *page)
{
    QList<EditorPage *> others = pages();
    others.removeOne(page);
    return closePages(others);
}

bool EditorArea::closeAll() { return closePages(pages()); }

void EditorArea::step(int distance)
{
    if (count() == 0)
        return;
    const int index = (currentIndex() + distance) % count();
    bringUpPage(qobject_cast<EditorPage *>(widget(index < 0 ? index + count() : index)));
}

void EditorArea::paintEvent(QPaintEvent *event)
{
    QTabWidget::paintEvent(event);
    if (count() > 0)
        return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const int margin = fontMetrics().averageCharWidth() * 4;
    painter.drawText(rect().adjusted(margin, 0, -margin, 0), Qt::AlignCenter | Qt::TextWordWrap,
                     tr("No file is open here.\n"
                        "Double-click a file of a design to edit it."));
}

void EditorArea::tabInserted(int) { updateTabs(); }

// The focus stays in the area when the tab that had it is closed.
void EditorArea::tabRemoved(int)
{
    updateTabs();
    QWidget *focused = focusWidget();
    const bool inArea = focused && (focused == this || isAncestorOf(focused));
    if (currentPage() && inArea)
        currentPage()->setFocus();
}

bool EditorArea::closePages(const QList<EditorPage *> &closing)
{
    QList<EditorPage *> changed = closing;
    changed.removeIf([](const EditorPage *page) { return !page->isModified(); });
    const QList<QPointer<EditorPage>> leaving(closing.begin(), closing.end());
    if (!changed.isEmpty() && !saveBeforeClosing(changed))
        return false;
    for (const QPointer<EditorPage> &page : leaving) {
        if (!page)
            continue;
        removeTab(indexOf(page));
        page->deleteLater();
    }
    return true;
}

bool EditorArea::saveBeforeClosing(const QList<EditorPage *> &changed)
{
    const QList<QPointer<EditorPage>> asked(changed.begin(), changed.end());
    QStringList titles;
    for (const EditorPage *page : changed)
        titles.append(page->title());
    if (!changed.contains(currentPage()))
        setCurrentWidget(changed.first());
    const auto answer = unsavedchanges::ask(this, titles);
    if (answer != unsavedchanges::Answer::Save)
        return answer == unsavedchanges::Answer::Discard;
    for (const QPointer<EditorPage> &page : asked) {
        if (page && !savePage(page))
            return false;
    }
    return true;
}

void EditorArea::updateTab(EditorPage *page)
{
    const int index = indexOf(page);
    if (index < 0)
        return;
    QString title = titleAmongOthers(page);
    title.replace(u'&', u"&&"_s);
    setTabText(index, page->isModified() ? title + u'*' : title);
    setTabToolTip(index, page->toolTipText());
    theActions->update();
    if (page == currentPage())
        Q_EMIT currentPageChanged();
}

// Files of one name are told apart by their folders.
QString EditorArea::titleAmongOthers(const EditorPage *page) const
{
    const QString title = page->title();
    const QString folder = QFileInfo(page->filePath()).dir().dirName();
    const QList<EditorPage *> all = pages();
    const bool alone = std::none_of(all.begin(), all.end(), [&](const EditorPage *other) {
        return other != page && other->title() == title;
    });
    return alone || page->filePath().isEmpty() ? title : tr("%1 \u2013 %2").arg(title, folder);
}

void EditorArea::updateTabs()
{
    for (EditorPage *page : pages())
        updateTab(page);
}

void EditorArea::showMenu(int index, const QPoint &globalPosition)
{
    TabMenu menu(this, qobject_cast<EditorPage *>(widget(index)));
    menu.exec(globalPosition);
}
