#pragma once

#include <Qtilities/LoggerEngine.h>

namespace Qtilities::Logging {

// Writes messages to the process's standard error at once, for a run without a window: the word
// for the type, a colon, and the text, as in "Error: uart.xml:12: ...". Each message starts a
// line; further lines of it are indented, and control characters are spelt out. Choose what it
// takes with setMessageTypes.
class QTILITIES_EXPORT StandardErrorEngine : public LoggerEngine
{
    Q_OBJECT

public:
    explicit StandardErrorEngine(QObject *parent = nullptr);
    ~StandardErrorEngine() override;

    void logMessage(int type, const QString &text) override;
};

} // namespace Qtilities::Logging
