#include "app/process/qtmessages.h"

#include "app/process/standardstreams.h"

#include <Qtilities/Logger.h>

#include <QCoreApplication>

using Qtilities::Logging::Logger;

namespace qtmessages {

namespace {

void handle(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg)
        standardstreams::printError(text);
    else if (QCoreApplication::instance())
        Logger::instance()->logMessage(QString(), Logger::Debug, text);
}

} // namespace

void sendToLog() { qInstallMessageHandler(handle); }

} // namespace qtmessages
