#include "app/designs/HostAttempt.h"

#include <MorvalenCore/ChangeBracket.h>

#include <QMessageBox>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::ChangeBracket;
using Qtilities::Logging::Logger;

namespace {

// What a box shows at once; the rest is behind its button for details.
constexpr qsizetype lineLimit = 8;

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
        tellUser(parent, title, reasons);
}

void HostAttempt::refused(const QString &reason)
{
    isRefused = true;
    if (!reason.isEmpty())
        reasons.append(reason);
}

void tellUser(QWidget *window, const QString &title, const QStringList &lines)
{
    auto *box = new QMessageBox(QMessageBox::Warning, title, QString(), QMessageBox::Ok, window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setText(lines.first(std::min(lines.size(), lineLimit)).join(u'\n'));
    if (lines.size() > lineLimit) {
        box->setInformativeText(QMessageBox::tr("And %1 more.").arg(lines.size() - lineLimit));
        box->setDetailedText(lines.join(u'\n'));
    }
    box->open();
}
