#include "app/calls/HostCall.h"

#include "app/messages/messages.h"

#include <MorvalenCore/ChangeBracket.h>
#include <Qtilities/statuslog.h>

#include <QMessageBox>

using MorvalenCore::ChangeBracket;

HostCall::HostCall(QWidget *window, const QString &titleText) : parent(window), title(titleText)
{
    ChangeBracket::instance()->open();
}

HostCall::~HostCall()
{
    ChangeBracket::instance()->close();
    reasons.removeDuplicates();
    if (!reasons.isEmpty() && parent)
        messages::warn(parent, title, reasons);
}

bool HostCall::take(const Status &status)
{
    reasons.append(linesOf(status));
    return status.isOk();
}

void HostCall::take(const QList<Status> &statuses)
{
    for (const Status &status : statuses)
        take(status);
}

bool HostCall::takeAndLog(const Status &status, Logger::MessageType failureType)
{
    Qtilities::Logging::logStatus(status, failureType);
    return take(status);
}

QStringList HostCall::linesOf(const Status &status)
{
    QStringList lines;
    for (const Status::Remark &remark : status.remarks())
        lines.append(remark.text);
    if (!status.isOk())
        lines.append(status.text().isEmpty()
                         ? QMessageBox::tr("It was refused; no reason is known.")
                         : status.text());
    return lines;
}
