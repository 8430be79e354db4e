#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QByteArrayView>
#include <QString>

namespace Qtilities::Core {

// The text that UTF-8 bytes stand for, each character of it: a U+FEFF at the front is one like any
// other, where QString::fromUtf8() takes it for the mark of a file and drops it.
QTILITIES_EXPORT QString textOfUtf8(QByteArrayView bytes);

} // namespace Qtilities::Core
