#pragma once

#include <QTabWidget>

class EditorActions;
class EditorPage;
class EditorTabBar;

// The editor area: pages behind tabs that can be moved and closed. A page with unsaved changes has
// a star behind its title, and nothing closes it before the user was asked.
class EditorArea : public QTabWidget
{
    Q_OBJECT

public:
    explicit EditorArea(QWidget *parent = nullptr);
    ~EditorArea() override;

    // What menus and keys do with the pages; for the menus of the window.
    EditorActions *editorActions() const { return theActions; }

    // Adds a page, which belongs to the area then; with bringUp in front. A page whose key is
    // there already is deleted, and the one that is there takes its place. Returns the page that
    // is in the area.
    EditorPage *addPage(EditorPage *page, bool bringUp = true);
    void bringUpPage(EditorPage *page);

    // Null when there is none.
    EditorPage *page(const QString &key) const;
    EditorPage *currentPage() const;
    QList<EditorPage *> pages() const;
    QList<EditorPage *> modifiedPages() const;

    // Saves a page; the user is told when that cannot be.
    bool savePage(EditorPage *page);
    // False when one of the changed pages is still unsaved.
    bool saveAll();

    // Closes pages; the user is asked once about all unsaved changes: save, discard or cancel.
    // False when one of them stays.
    bool closePage(EditorPage *page);
    bool closeOthers(EditorPage *page);
    bool closeAll();

    // Brings the page so many tabs further on to the front; behind the last comes the first.
    void step(int tabs);

Q_SIGNALS:
    // Another page is in front, or the state of the one in front is another one.
    void currentPageChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void tabInserted(int index) override;
    void tabRemoved(int index) override;

private:
    bool closePages(const QList<EditorPage *> &closing);
    bool saveBeforeClosing(const QList<EditorPage *> &changed);
    void updateTab(EditorPage *page);
    void updateTabs();
    QString titleAmongOthers(const EditorPage *page) const;
    void showMenu(int index, const QPoint &globalPosition);

    EditorTabBar *tabs;
    EditorActions *theActions;
};
