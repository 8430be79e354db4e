#include "app/process/qtmessages.h"

#include "app/process/standardstreams.h"

#include <Qtilities/Logger.h>

#include <QCoreApplication>
#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Logging::Logger;

namespace qtmessages {

namespace {

// What Qt's views tell of themselves says nothing about what a user does.
bool isOfView(const QString &text)
{
    // Messages come until the very end of the process.
    static const auto *const ownTexts = new QRegularExpression(
        u"^(edit: |index:? |Q\\w*(View|Header|Delegate|Selection|ProxyModel)\\w*(::|:| ))"_s);
    return text.contains(*ownTexts);
}

void handle(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg || isOfView(text))
        standardstreams::printError(text);
    else if (QCoreApplication::instance())
        Logger::instance()->logMessage(QString(), Logger::Debug, text);
}

void handleFatal(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg)
        standardstreams::printError(text);
}

} // namespace

void sendToLog() { qInstallMessageHandler(handle); }

void dropFromNowOn() { qInstallMessageHandler(handleFatal); }

} // namespace qtmessages
