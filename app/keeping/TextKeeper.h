#pragma once

#include "app/keeping/KeptTexts.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QThreadPool>
#include <QTimer>

class EditorArea;
class KeptTextsDialog;
class TextPage;

// Keeps the texts of an editor area aside while they are not saved, a moment after each change, and
// offers those that a killed process has left. Files are written by a thread, so that nobody who
// types waits for the disk.
class TextKeeper : public QObject
{
    Q_OBJECT

public:
    // From a change to the write, in milliseconds; what is typed meanwhile is written with it.
    static inline int delay = 2'000;

    explicit TextKeeper(EditorArea *area, QObject *parent = nullptr);
    // Waits until all is written, and leaves it.
    ~TextKeeper() override;

    // Shows what was left, if anything, and lets the user choose.
    void offer(QWidget *window);

    // Keeps now what is not kept yet, and waits until it is written.
    void keepNow();

    // The program ends, and all that is not saved was given up: keeps nothing more.
    void end();

private:
    void follow();
    void keepSoon();
    void keep();
    void keep(const TextPage &page);
    void drop(const QString &path);
    void tell(const QString &reason);
    void restore(const KeptText &text);

    EditorArea *editors;
    KeptTexts texts;
    QTimer timer;
    // What is kept: by its file, the revision of the document.
    QHash<QString, int> kept;
    QPointer<KeptTextsDialog> dialog;
    bool isEnded = false;
    bool isTold = false;
    QThreadPool writer;
};
