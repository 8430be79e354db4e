#include <Qtilities/utf8text.h>

namespace Qtilities::Core {

QString textOfUtf8(QByteArrayView bytes)
{
    const QString text = QString::fromUtf8(bytes);
    return bytes.startsWith("\xef\xbb\xbf") ? QChar(QChar::ByteOrderMark) + text : text;
}

} // namespace Qtilities::Core
