#pragma once

#include <MorvalenCore/IDesign.h>

#include <QObject>

#include <functional>

// Which design is selected where designs can be selected. One per process.
class DesignSelection : public QObject
{
    Q_OBJECT

public:
    using Source = std::function<MorvalenCore::Interfaces::IDesign *()>;

    static DesignSelection *instance();

    // An empty function when there is nothing to select in.
    void setSource(const Source &source);
    // Null when no design is selected, or several are.
    MorvalenCore::Interfaces::IDesign *design() const { return from ? from() : nullptr; }

Q_SIGNALS:
    // Perhaps; told by where the selection comes from.
    void changed();

private:
    DesignSelection() = default;

    Source from;
};
