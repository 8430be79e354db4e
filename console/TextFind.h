#pragma once

#include "console/SearchStrip.h"

#include <QTextDocument>

// Finds text in a console, from the end upwards while the user types. Return and Ctrl+F go on
// upwards, Shift+Return downwards; Escape leaves the match selected.
class TextFind : public SearchStrip
{
    Q_OBJECT

public:
    explicit TextFind(QConsole *owner);

protected:
    void search() override;
    bool pressed(const QKeyEvent &event) override;

private:
    void find(const QTextCursor &from, QTextDocument::FindFlags direction);
};
