#pragma once

#include <QWidget>

// A page of the editor area: something that is shown behind a tab, can be changed there, and is
// saved. A page belongs to its area.
class EditorPage : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    // What tells the page from all others, such as the canonical path of its file: the area has
    // one page of a key.
    virtual QString key() const = 0;

    // The text of the tab, without a mark for changes, and what the mouse tells of it.
    virtual QString title() const = 0;
    virtual QString toolTipText() const { return {}; }

    virtual bool isModified() const { return false; }

    // Saves the changes. False when that cannot be, with the changes kept and one sentence without
    // a final line feed in *error; the sentence is empty when the user chose not to.
    virtual bool save(QString *error) = 0;

    // Lets the user search the page; nothing for pages that have nothing to search.
    virtual void find() { }

Q_SIGNALS:
    // The key, the title or what the mouse tells is another one, or whether there are changes.
    void stateChanged();
};
