#pragma once

#include <MorvalenCore/MorvalenCoreExport.h>

#include <QElapsedTimer>
#include <QMap>
#include <QObject>
#include <QTimer>

namespace MorvalenCore {

// Counts the brackets around changes that scripts make. While one is open, views hold their
// updates back and changes are gathered; closing the last one tells everybody once.
//
// A bracket left open is closed when control returns to the event loop that it was opened from.
// A script that waits in an event loop of its own keeps its brackets; so that the window does not
// show stale views for as long as it waits, everybody is told every breathInterval meanwhile: the
// signals closed and opened follow each other, and the depth stays.
//
// One per process.
class MORVALENCORE_EXPORT ChangeBracket : public QObject
{
    Q_OBJECT

public:
    // In milliseconds.
    static constexpr int breathInterval = 250;

    explicit ChangeBracket(QObject *parent = nullptr);
    ~ChangeBracket() override;

    // The one that was set, else one made on first use.
    static ChangeBracket *instance();

    // Replaces it; it stays the caller's, null brings the default back.
    static void setInstance(ChangeBracket *bracket);

    virtual void open();
    // Ignored when no bracket is open.
    virtual void close();

    int depth() const { return openBrackets; }

Q_SIGNALS:
    void opened();
    void closed();

private:
    struct AwaitedReturn
    {
        int depth = 0; // before, of what is still open
        QObject *sentinel = nullptr;
    };

    void closeLast();
    void closeWhenControlReturns();
    void closeWhatNestedLoopsLeft();
    void closeDownTo(int depth);
    void beat();

    int openBrackets = 0;
    // For each level of nested event loops that somebody waits to return to.
    QMap<int, AwaitedReturn> awaitedReturns;
    QTimer heart;
    QElapsedTimer sinceBreath;
};

} // namespace MorvalenCore
