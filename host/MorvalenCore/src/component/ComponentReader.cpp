#include "component/ComponentReader.h"

#include "component/ipxact.h"

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

ComponentReader::ComponentReader(const QByteArray &documentBytes, const QString &documentPath)
    : bytes(documentBytes),
      path(documentPath),
      index(XmlIndex::read(documentBytes, isWanted))
{
    if (!index.isValid())
        refuse(index.line, index.error);
    else
        checkRoot();
}

bool ComponentReader::isWanted(const XmlNames &names, const XmlName &name, int level)
{
    if (level == 1)
        return name.local == "fileSets" || name.local == "parameters"
            || name.local == "vendorExtensions";
    // Foreign extensions may be large, and only their texts matter.
    return name.local == "fileSet" || name.local == "parameter"
        || names.uri(name.space) == Ipxact::ownNamespace;
}

QString ComponentReader::onLine(int line, const QString &text) const
{
    return u"%1:%2: %3"_s.arg(path, QString::number(line), text);
}

void ComponentReader::refuse(int line, const QString &reason) { errorText = onLine(line, reason); }

QStringList ComponentReader::warnings() const
{
    if (index.undeclaredPrefix.isEmpty())
        return {};
    return {
        onLine(index.undeclaredLine,
               u"The prefix \"%1\" is not declared; other programs may refuse the document."_s.arg(
                   index.undeclaredPrefix))};
}

void ComponentReader::checkRoot()
{
    const XmlElement &root = index.elements[1];
    const XmlName &name = index.names.at(root.name);
    const QString qualified = QString::fromUtf8(name.qualified());
    const QString uri = QString::fromUtf8(index.names.uri(name.space));
    const QString place = uri.isEmpty() ? u"in no namespace"_s : u"in the namespace "_s + uri;
    const auto generation = Ipxact::generationOf(index.names.uri(name.space));
    const int line = XmlIndex::lineOf(bytes, root.start);
    if (name.local != "component") {
        refuse(
            line,
            u"The document is not a component: its root element is %1 %2."_s.arg(qualified, place));
    } else if (!generation) {
        refuse(line,
               u"The document is not of a version of IP-XACT that can be read: its root element "
               "is %1 %2."_s.arg(qualified, place));
    } else {
        componentGeneration = *generation;
    }
}

} // namespace MorvalenCore
