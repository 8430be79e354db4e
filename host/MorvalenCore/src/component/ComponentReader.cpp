#include "component/ComponentReader.h"

#include "component/ipxact.h"

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace MorvalenCore {

ComponentReader::ComponentReader(const QByteArray &documentBytes, const QString &documentPath)
    : bytes(documentBytes),
      path(documentPath),
      index(XmlIndex::read(documentBytes, isWanted))
{
    findings = index.isValid() ? readRoot() : refused(index.line, index.error);
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

Status ComponentReader::refused(int line, const QString &reason) const
{
    return Status::malformed(onLine(line, reason));
}

Status ComponentReader::readRoot()
{
    const XmlElement &root = index.elements[1];
    const XmlName &name = index.names.at(root.name);
    const QString qualified = QString::fromUtf8(name.qualified());
    const QString uri = QString::fromUtf8(index.names.uri(name.space));
    const QString place = uri.isEmpty() ? u"in no namespace"_s : u"in the namespace "_s + uri;
    const auto generation = Ipxact::generationOf(index.names.uri(name.space));
    const int line = XmlIndex::lineOf(bytes, root.start);
    if (name.local != "component")
        return refused(
            line,
            u"The document is not a component: its root element is %1 %2."_s.arg(qualified, place));
    if (!generation)
        return refused(
            line,
            u"The document is not of a version of IP-XACT that can be read: its root element "
            "is %1 %2."_s.arg(qualified, place));
    componentGeneration = *generation;
    Status found;
    if (!index.undeclaredPrefix.isEmpty())
        found.addWarning(onLine(
            index.undeclaredLine,
            u"The prefix \"%1\" is not declared; other programs may refuse the document."_s.arg(
                index.undeclaredPrefix)));
    return found;
}

} // namespace MorvalenCore
