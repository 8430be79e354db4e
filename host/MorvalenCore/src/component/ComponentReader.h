#pragma once

#include "component/Generation.h"
#include "component/XmlIndex.h"

#include <Qtilities/Status.h>

#include <QByteArray>
#include <QString>

namespace MorvalenCore {

// Reads bytes as a component and says what is wrong with them.
class ComponentReader
{
public:
    // path is what messages call the document.
    ComponentReader(const QByteArray &bytes, const QString &path);

    // Whether the bytes are a component that can be used, with what is odd about it as remarks.
    // All texts are "FILE:LINE: text".
    const Qtilities::Core::Status &status() const { return findings; }

    XmlIndex takeIndex() { return std::move(index); }
    Generation generation() const { return componentGeneration; }

    // Whether the elements inside an element are ever looked at.
    static bool isWanted(const XmlNames &names, const XmlName &name, int level);

private:
    QString onLine(int line, const QString &text) const;
    Qtilities::Core::Status refused(int line, const QString &reason) const;
    Qtilities::Core::Status readRoot();

    const QByteArray &bytes;
    QString path;
    XmlIndex index;
    Generation componentGeneration = Generation::Ieee2014;
    Qtilities::Core::Status findings;
};

} // namespace MorvalenCore
