#pragma once

#include "component/Generation.h"
#include "component/XmlIndex.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace MorvalenCore {

// Reads bytes as a component and says what is wrong with them.
class ComponentReader
{
public:
    // path is what messages call the document.
    ComponentReader(const QByteArray &bytes, const QString &path);

    // Empty when the bytes are a component that can be used. "FILE:LINE: reason".
    const QString &error() const { return errorText; }

    // What is odd about a component that can be used. "FILE:LINE: remark".
    QStringList warnings() const;

    XmlIndex takeIndex() { return std::move(index); }
    Generation generation() const { return componentGeneration; }

    // Whether the elements inside an element are ever looked at.
    static bool isWanted(const XmlNames &names, const XmlName &name, int level);

private:
    QString onLine(int line, const QString &text) const;
    void refuse(int line, const QString &reason);
    void checkRoot();

    const QByteArray &bytes;
    QString path;
    XmlIndex index;
    Generation componentGeneration = Generation::Ieee2014;
    QString errorText;
};

} // namespace MorvalenCore
