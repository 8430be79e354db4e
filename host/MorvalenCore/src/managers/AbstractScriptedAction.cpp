#include <MorvalenCore/AbstractScriptedAction.h>
#include <MorvalenCore/ChangeBracket.h>

#include <Qtilities/Logger.h>
#include <Qtilities/regularfile.h>

#include <QFileInfo>
#include <QStringDecoder>

namespace MorvalenCore {

namespace {

using namespace Qt::Literals::StringLiterals;
using Qtilities::Logging::Logger;

void warn(const QString &text) { Logger::instance()->logMessage(QString(), Logger::Warning, text); }

} // namespace

AbstractScriptedAction::AbstractScriptedAction(QObject *parent) : TreeItemBase(parent) { }

AbstractScriptedAction::~AbstractScriptedAction() = default;

bool AbstractScriptedAction::filePathExists() const { return QFileInfo(filePath()).isFile(); }

QString AbstractScriptedAction::fileContents() const
{
    // A pipe or a device would keep the caller waiting.
    if (!filePathExists())
        return {};
    const auto bytes = Qtilities::Core::readRegularFile(filePath());
    if (!bytes.isOk()) {
        warn(u"Cannot read the script file \"%1\": %2"_s.arg(filePath(), bytes.status().text()));
        return {};
    }
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder.decode(bytes.value());
    if (decoder.hasError()) {
        warn(
            u"The script file \"%1\" is not UTF-8; what cannot be read is replaced by U+FFFD"_s.arg(
                filePath()));
    }
    return text;
}

void AbstractScriptedAction::initExec() { ChangeBracket::instance()->open(); }

void AbstractScriptedAction::finalizeExec() { ChangeBracket::instance()->close(); }

} // namespace MorvalenCore
