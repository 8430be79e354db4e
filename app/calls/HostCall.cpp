#include "app/calls/HostCall.h"

#include "app/messages/messages.h"

#include <MorvalenCore/ChangeBracket.h>

#include <QMessageBox>

using MorvalenCore::ChangeBracket;

HostCall::HostCall(QWidget *window, const QString &titleText) : parent(window), title(titleText)
{
    ChangeBracket::instance()->open();
}

HostCall::~HostCall()
{
    ChangeBracket::instance()->close();
    if (isRefused && reasons.isEmpty())
        reasons.append(QMessageBox::tr("It was refused; no reason is known."));
    QStringList lines = reasons.lines();
    lines.removeDuplicates();
    if (!lines.isEmpty() && parent)
        messages::warn(parent, title, lines);
}

void HostCall::refused(const QString &reason)
{
    isRefused = true;
    if (!reason.isEmpty())
        reasons.append(reason);
}
