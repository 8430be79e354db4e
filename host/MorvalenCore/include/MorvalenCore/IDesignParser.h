#pragma once

#include <QFlags>

namespace MorvalenCore::Interfaces {

// The type of the options that callers of DesignConstructor name. There is one format, so that
// there is nothing to choose yet.
class IDesignParser
{
public:
    enum DesignParserOption { NoOptions = 0 };
    Q_DECLARE_FLAGS(DesignParserOptions, DesignParserOption)

    virtual ~IDesignParser() = default;
};

} // namespace MorvalenCore::Interfaces
