#include <Qtilities/StandardErrorEngine.h>

#include "logline.h"

#include <cstdio>

namespace Qtilities::Logging {

using namespace Qt::Literals::StringLiterals;

StandardErrorEngine::StandardErrorEngine(QObject *parent)
    : LoggerEngine(u"Standard Error"_s, parent)
{
}

StandardErrorEngine::~StandardErrorEngine() = default;

void StandardErrorEngine::logMessage(int type, const QString &text)
{
    // One call for the whole entry, so that those of several processes do not mix.
    const QByteArray entry = logEntry(QString(), type, text).toLocal8Bit();
    std::fwrite(entry.constData(), 1, size_t(entry.size()), stderr);
}

} // namespace Qtilities::Logging
