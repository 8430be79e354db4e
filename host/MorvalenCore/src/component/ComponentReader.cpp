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
    const auto generation = Ipxact::generationOf(index.names.uri(name.space));
    const auto refusedFor = [&](const QString &what) {
        const QString uri = QString::fromUtf8(index.names.uri(name.space));
        const QString place = uri.isEmpty() ? u"in no namespace"_s : u"in the namespace "_s + uri;
        return refused(XmlIndex::lineOf(bytes, root.start),
                       u"The document is not %1: its root element is %2 %3."_s.arg(
                           what, QString::fromUtf8(name.qualified()), place));
    };
    if (name.local != "component")
        return refusedFor(u"a component"_s);
    if (!generation)
        return refusedFor(u"of a version of IP-XACT that can be read"_s);
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
