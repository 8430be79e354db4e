#pragma once

#include <QMenu>

// The files that were opened last, designs first, then projects. It is made anew each time it
// opens.
class RecentMenu : public QMenu
{
    Q_OBJECT

public:
    explicit RecentMenu(QWidget *parent = nullptr);

Q_SIGNALS:
    void chosen(const QString &file);

private:
    void rebuild();
    void addFiles(const QStringList &files);
};
