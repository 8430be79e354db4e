#pragma once

#include <QMenu>

class EditorArea;
class EditorPage;

// The menu of one tab: closing it and others, and where its file is.
class TabMenu : public QMenu
{
    Q_OBJECT

public:
    TabMenu(EditorArea *area, EditorPage *page);
};
