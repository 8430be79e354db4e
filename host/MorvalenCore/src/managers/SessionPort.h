#pragma once

#include <Qtilities/Descriptor.h>
#include <Qtilities/Status.h>

#include <QObject>

#include <memory>

class QSocketNotifier;

namespace MorvalenCore {

// A UDP port on the loopback address that is of nobody else while this exists. What arrives there
// is read and dropped. Made of system calls: Qt's module for networks takes longer to load than the
// four libraries of this project.
class SessionPort : public QObject
{
    Q_OBJECT

public:
    explicit SessionPort(QObject *parent = nullptr);
    ~SessionPort() override;

    // The number of the port, which is taken by the first call that finds one.
    Qtilities::Core::Result<int> number();

private:
    void drop() const;

    Qtilities::Core::Descriptor socket;
    int boundTo = 0;
    std::unique_ptr<QSocketNotifier> arrivals;
};

} // namespace MorvalenCore
