#include "ProjectFile.h"

#include "ProjectReader.h"

#include <Qtilities/atomicfile.h>
#include <Qtilities/regularfile.h>

#include <QDir>
#include <QFileInfo>
#include <QXmlStreamWriter>

namespace Qtilities::ProjectManagement {

namespace {

using namespace Qt::Literals::StringLiterals;
using Core::Result;
using Core::Status;

constexpr qint64 maximumBytes = qint64(16) * 1024 * 1024;

// The content of a file that can be a project.
Result<QByteArray> bytesOf(const QString &fileName)
{
    const QFileInfo info(fileName);
    if (info.exists() && !info.isFile())
        return Status::invalidArgument(u"%1: it is not a file"_s.arg(fileName));
    const Result<QByteArray> bytes = Core::readRegularFile(fileName, maximumBytes + 1);
    if (!bytes.isOk()) {
        const Status &status = bytes.status();
        return status.withText(u"%1: %2"_s.arg(fileName, status.text()));
    }
    if (bytes.value().size() > maximumBytes)
        return Status::malformed(
            u"%1: it has more than %2 bytes"_s.arg(fileName).arg(maximumBytes));
    return bytes;
}

bool holdsSomethingElse(const QString &fileName)
{
    const Result<QByteArray> head = Core::readRegularFile(fileName, 4096);
    return head.isOk() && !head.value().isEmpty() && !head.value().contains("<project");
}

bool isAllowed(QChar character)
{
    const char16_t code = character.unicode();
    return (code >= 0x20 && code < 0xfffe) || code == '\t' || code == '\n' || code == '\r';
}

// Whether XML can hold a text as it is.
bool canBeKept(const QString &text)
{
    return text.isValidUtf16() && std::all_of(text.cbegin(), text.cend(), isAllowed);
}

QString firstTextThatCannotBeKept(const ProjectContent &content)
{
    if (!canBeKept(content.name))
        return content.name;
    for (const ProjectSection &section : content.sections) {
        for (const ProjectEntry &entry : section.entries) {
            if (!canBeKept(entry.path))
                return entry.path;
        }
    }
    return {};
}

QByteArray bytesOf(const ProjectContent &content, const QString &folder, bool makeRelative)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(u"project"_s);
    xml.writeAttribute(u"version"_s, QString::number(ProjectReader::knownVersion));
    xml.writeAttribute(u"name"_s, content.name);
    for (const ProjectSection &section : content.sections) {
        xml.writeStartElement(section.name);
        for (const ProjectEntry &entry : section.entries) {
            xml.writeEmptyElement(u"entry"_s);
            xml.writeAttribute(
                u"path"_s, makeRelative ? QDir(folder).relativeFilePath(entry.path) : entry.path);
            if (entry.active)
                xml.writeAttribute(u"active"_s, u"true"_s);
        }
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    return bytes;
}

} // namespace

bool operator==(const ProjectContent &left, const ProjectContent &right)
{
    const auto sameEntry = [](const ProjectEntry &one, const ProjectEntry &other) {
        return one.path == other.path && one.active == other.active;
    };
    const auto sameSection = [&](const ProjectSection &one, const ProjectSection &other) {
        return one.name == other.name
            && std::equal(one.entries.cbegin(), one.entries.cend(), other.entries.cbegin(),
                          other.entries.cend(), sameEntry);
    };
    return left.name == right.name
        && std::equal(left.sections.cbegin(), left.sections.cend(), right.sections.cbegin(),
                      right.sections.cend(), sameSection);
}

Result<ProjectContent> readProjectFile(const QString &fileName)
{
    const Result<QByteArray> bytes = bytesOf(fileName);
    if (!bytes.isOk())
        return bytes.status();
    return ProjectReader(fileName, bytes.value()).read();
}

Status writeProjectFile(const QString &fileName, const ProjectContent &content, bool makeRelative)
{
    const QString odd = firstTextThatCannotBeKept(content);
    if (!odd.isEmpty()) {
        return Status::invalidArgument(
            u"Cannot write \"%1\": a project file cannot hold the characters of \"%2\""_s.arg(
                fileName, odd));
    }
    if (holdsSomethingElse(fileName)) {
        return Status::alreadyExists(
            u"Cannot write \"%1\": something else than a project is in it"_s.arg(fileName));
    }
    return Core::writeFileAtomically(
        fileName, bytesOf(content, ProjectReader::baseFolder(fileName), makeRelative));
}

} // namespace Qtilities::ProjectManagement
