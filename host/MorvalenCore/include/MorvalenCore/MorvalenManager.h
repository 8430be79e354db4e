#pragma once

#include <MorvalenCore/ExtensionWidgetParameters.h>
#include <MorvalenCore/MorvalenCoreExport.h>

#include <QObject>

namespace MorvalenCore {

class SessionPort;

// The services of the running program that belong to no design. One manager per process.
class MORVALENCORE_EXPORT MorvalenManager : public QObject
{
    Q_OBJECT

public:
    explicit MorvalenManager(QObject *parent = nullptr);
    ~MorvalenManager() override;

    // The manager: the one that was set, else one made on first use.
    static MorvalenManager *instance();

    // Replaces the manager, which stays the caller's; null brings the default back.
    static void setInstance(MorvalenManager *manager);

    // Shows a widget of a plug-in's in the main window, which takes it at the signal; without a
    // main window, or when nobody takes it, it shows as a window of its own. The widget stays the
    // caller's; a null one is ignored.
    virtual void addExtensionWidget(const ExtensionWidgetParameters &parameters);

    // The UDP port on the loopback address by which other programs find this session; bound on
    // first use, 0 when none could be had, with the reason in the log. What arrives there is read
    // and dropped.
    virtual int getUdpSocketForSession();

Q_SIGNALS:
    void extensionWidgetAdded(const MorvalenCore::ExtensionWidgetParameters &parameters);

private:
    SessionPort *sessionPort = nullptr;
};

} // namespace MorvalenCore
