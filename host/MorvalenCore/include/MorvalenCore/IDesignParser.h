#pragma once

#include <QFlags>

namespace MorvalenCore::Interfaces {

// Reads and writes designs in one format.
class IDesignParser
{
public:
    enum DesignParserOption { NoOptions = 0 };
    Q_DECLARE_FLAGS(DesignParserOptions, DesignParserOption)

    virtual ~IDesignParser() = default;
};

} // namespace MorvalenCore::Interfaces
