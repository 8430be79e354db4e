#include "app/calls/HostAttempt.h"

#include "app/messages/messages.h"

#include <MorvalenCore/ChangeBracket.h>

#include <QMessageBox>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::ChangeBracket;
using Qtilities::Logging::Logger;

namespace {

constexpr int reasonTypes = Logger::Warning | Logger::Error | Logger::Fatal;

} // namespace

HostAttempt::HostAttempt(QWidget *window, const QString &titleText)
    : parent(window),
      title(titleText)
{
    log = QObject::connect(
        Logger::instance(), &Logger::messageLogged,
        [this](const QString &engine, Logger::MessageType type, const QString &text) {
            if (engine.isEmpty() && (type & reasonTypes) != 0)
                reasons.append(text);
        });
    ChangeBracket::instance()->open();
}

HostAttempt::~HostAttempt()
{
    ChangeBracket::instance()->close();
    QObject::disconnect(log);
    if (isRefused && reasons.isEmpty())
        reasons.append(QMessageBox::tr("It was refused; no reason is known."));
    reasons.removeDuplicates();
    if (!reasons.isEmpty() && parent)
        messages::warn(parent, title, reasons);
}

void HostAttempt::refused(const QString &reason)
{
    isRefused = true;
    if (!reason.isEmpty())
        reasons.append(reason);
}
