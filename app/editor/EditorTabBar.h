#pragma once

#include <QTabBar>

// The tabs of the editor area. A middle click closes a tab, as its button does.
class EditorTabBar : public QTabBar
{
    Q_OBJECT

public:
    explicit EditorTabBar(QWidget *parent = nullptr);

Q_SIGNALS:
    // The user wants the menu of a tab, which belongs at a place of the screen.
    void menuRequested(int index, const QPoint &globalPosition);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    int pressed = -1;
};
