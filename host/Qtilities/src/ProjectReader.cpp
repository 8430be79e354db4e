#include "ProjectReader.h"

#include <QDir>
#include <QFileInfo>

namespace Qtilities::ProjectManagement {

namespace {

using namespace Qt::Literals::StringLiterals;

// 0 when there is none.
qint64 lineThatIsNotUtf8(const QByteArray &bytes)
{
    qint64 number = 0;
    for (const QByteArray &line : bytes.split('\n')) {
        ++number;
        if (!line.isValidUtf8())
            return number;
    }
    return 0;
}

} // namespace

QString ProjectReader::baseFolder(const QString &fileName)
{
    const QFileInfo info(fileName);
    const QString real = info.canonicalFilePath();
    return QFileInfo(real.isEmpty() ? info.absoluteFilePath() : real).path();
}

ProjectReader::ProjectReader(const QString &fileName, const QByteArray &bytes)
    : xml(bytes),
      file(fileName),
      folder(baseFolder(fileName)),
      badLine(lineThatIsNotUtf8(bytes))
{
    // The parser would blame the first line.
    if (badLine > 0)
        xml.raiseError(u"there are bytes that are not UTF-8"_s);
}

Core::Result<ProjectContent> ProjectReader::read()
{
    ProjectContent content;
    if (nextElement())
        readProject(&content);
    while (!xml.hasError() && !xml.atEnd())
        refuseText(xml.readNext());
    if (xml.hasError()) {
        const qint64 line = badLine > 0 ? badLine : xml.lineNumber();
        return Core::Status::malformed(u"%1:%2: %3"_s.arg(file).arg(line).arg(xml.errorString()));
    }
    return content;
}

// The parser's own line may have moved on by the time that the error is looked at.
void ProjectReader::fail(const QString &reason)
{
    if (xml.hasError())
        return;
    badLine = xml.lineNumber();
    xml.raiseError(reason);
}

void ProjectReader::refuseText(QXmlStreamReader::TokenType token)
{
    if (token == QXmlStreamReader::DTD)
        fail(u"a project has no document type"_s);
    if (token == QXmlStreamReader::Characters && !xml.isWhitespace())
        fail(u"there is text between the elements"_s);
}

// The next element inside the current one; false at its end.
bool ProjectReader::nextElement()
{
    while (!xml.hasError() && !xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::StartElement)
            return true;
        if (token == QXmlStreamReader::EndElement)
            return false;
        refuseText(token);
    }
    return false;
}

void ProjectReader::expectAttributes(std::initializer_list<QLatin1StringView> known)
{
    const QXmlStreamAttributes attributes = xml.attributes();
    for (const QXmlStreamAttribute &attribute : attributes) {
        const QStringView name = attribute.qualifiedName();
        if (std::find(known.begin(), known.end(), name) == known.end())
            fail(u"<%1> has the unknown attribute \"%2\""_s.arg(xml.qualifiedName(), name));
    }
}

void ProjectReader::readProject(ProjectContent *content)
{
    if (xml.qualifiedName() != "project"_L1) {
        fail(u"<%1> is no project"_s.arg(xml.qualifiedName()));
        return;
    }
    expectAttributes({"version"_L1, "name"_L1});
    const QString version = xml.attributes().value("version"_L1).toString();
    if (version != QString::number(knownVersion))
        fail(u"version \"%1\" of project files is not known"_s.arg(version));
    content->name = xml.attributes().value("name"_L1).toString();
    if (content->name.isEmpty())
        content->name = QFileInfo(file).completeBaseName();
    while (nextElement()) {
        const auto sameName = [this](const ProjectSection &earlier) {
            return earlier.name == xml.qualifiedName();
        };
        if (std::any_of(content->sections.cbegin(), content->sections.cend(), sameName))
            fail(u"there is a second <%1>"_s.arg(xml.qualifiedName()));
        content->sections.append(readSection());
    }
}

ProjectSection ProjectReader::readSection()
{
    ProjectSection section {xml.qualifiedName().toString(), {}, int(xml.lineNumber())};
    expectAttributes({});
    paths.clear();
    anyActive = false;
    while (nextElement())
        section.entries.append(readEntry());
    return section;
}

ProjectEntry ProjectReader::readEntry()
{
    if (xml.qualifiedName() != "entry"_L1)
        fail(u"<%1> is not known here"_s.arg(xml.qualifiedName()));
    expectAttributes({"path"_L1, "active"_L1});
    const QString path = xml.attributes().value("path"_L1).toString();
    const QString active = xml.attributes().value("active"_L1).toString();
    ProjectEntry entry {absolute(path), active == "true"_L1, int(xml.lineNumber())};
    checkEntry(entry, path, active);
    paths.insert(entry.path);
    anyActive = anyActive || entry.active;
    if (nextElement())
        fail(u"<%1> is not known here"_s.arg(xml.qualifiedName()));
    return entry;
}

void ProjectReader::checkEntry(const ProjectEntry &entry, const QString &path, QStringView active)
{
    if (path.isEmpty())
        fail(u"an entry has no path"_s);
    if (entry.path == QDir::cleanPath(QFileInfo(file).absoluteFilePath()))
        fail(u"the project holds itself"_s);
    if (paths.contains(entry.path))
        fail(u"there is a second entry for \"%1\""_s.arg(path));
    if (!active.isEmpty() && active != "true"_L1 && active != "false"_L1)
        fail(u"\"%1\" is neither true nor false"_s.arg(active));
    if (entry.active && anyActive)
        fail(u"there is a second active entry"_s);
}

// A name that begins with a colon is a name like any other.
QString ProjectReader::absolute(const QString &path) const
{
    return QDir::cleanPath(path.startsWith(u'/') ? path : folder + u'/' + path);
}

} // namespace Qtilities::ProjectManagement
