#pragma once

#include <QObject>

class EditorArea;
class QAction;

// What File > Save and File > Save All do. Save is about the editor page in front while the
// editors show and the page has changes, and else about the active design; its text says which.
// Save All is about all pages, all designs, and the project when it has a file.
class SaveActions : public QObject
{
    Q_OBJECT

public:
    // Takes the keys of both over from the area's own actions, since two actions of one key are in
    // each other's way.
    SaveActions(EditorArea *area, QObject *parent);

    QAction *saveAction() const { return save; }
    QAction *saveAllAction() const { return saveAll; }

    // Shows what there is to save, for a menu that opens. Between menus both are enabled, so that
    // their keys always answer.
    void showState();
    void enable();

private:
    bool isAboutPage() const;
    void saveFront();
    void saveEverything();

    EditorArea *editors;
    QAction *save;
    QAction *saveAll;
};
