#pragma once

#include <MorvalenCore/MorvalenCoreExport.h>

#include <QObject>

namespace MorvalenCore {

// Counts the brackets around changes that scripts make. While one is open, views hold their
// updates back and changes are gathered; closing the last one tells everybody once. A bracket left
// open is closed when control returns to the event loop. One per process.
class MORVALENCORE_EXPORT ChangeBracket : public QObject
{
    Q_OBJECT

public:
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
    void closeAll();

    int openBrackets = 0;
};

} // namespace MorvalenCore
