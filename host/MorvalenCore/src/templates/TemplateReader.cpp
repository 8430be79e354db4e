#include "templates/TemplateReader.h"

#include <Qtilities/regularfile.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QResource>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// No template is anywhere near that.
constexpr qint64 greatestSize = 1'000'000;

// Those of the program are resources.
Result<QByteArray> contentOf(const QString &path)
{
    if (path.startsWith(u":/"_s))
        return QResource(path).uncompressedData();
    return Qtilities::Core::readRegularFile(path, greatestSize + 1);
}

} // namespace

Result<ConfigurationTemplate> TemplateReader::read(const QString &name, const QString &path)
{
    const Result<QByteArray> content = contentOf(path);
    if (!content.isOk())
        return content.status().withText(u"%1: %2"_s.arg(path, content.status().text()));
    const QByteArray &bytes = content.value();
    if (bytes.size() > greatestSize)
        return Status::malformed(u"%1: The file is too big for a template"_s.arg(path));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        const qsizetype line = bytes.first(qMin<qsizetype>(error.offset, bytes.size())).count('\n');
        return Status::malformed(
            u"%1:%2: %3"_s.arg(path, QString::number(line + 1), error.errorString()));
    }
    ConfigurationTemplate made;
    made.theName = name;
    made.thePath = path;
    TemplateReader reader(path);
    if (!document.isObject())
        reader.fail(u"A template is an object"_s);
    else if (reader.take(document.object(), &made))
        return made;
    return Status::malformed(reader.problem);
}

bool TemplateReader::take(const QJsonObject &object, ConfigurationTemplate *made)
{
    if (!onlyKnown(object,
                   {u"description"_s, u"programs"_s, u"sources"_s, u"properties"_s, u"target"_s,
                    u"macros"_s, u"steps"_s},
                   u"A template"_s))
        return false;
    made->theDescription = text(object, u"description"_s);
    made->thePrograms = texts(object, u"programs"_s);
    made->pattern.targetPath = text(object, u"target"_s);
    const QJsonObject properties = object[u"properties"_s].toObject();
    for (const QString &key : properties.keys())
        made->theProperties.append({key, text(properties, key)});
    const QJsonObject macros = object[u"macros"_s].toObject();
    for (const QString &key : macros.keys())
        made->pattern.macros.append({key, text(macros, key)});
    if (!takeSources(object[u"sources"_s].toObject(), made))
        return false;
    for (const QJsonValue &value : object[u"steps"_s].toArray()) {
        BuildStep step;
        if (!takeStep(value, &step))
            return false;
        made->pattern.steps.append(step);
    }
    if (made->pattern.steps.isEmpty())
        fail(u"A template has \"steps\", one or more"_s);
    return problem.isEmpty();
}

bool TemplateReader::takeSources(const QJsonObject &sources, ConfigurationTemplate *made)
{
    made->theKinds = texts(sources, u"kinds"_s);
    made->theNodes = texts(sources, u"nodes"_s);
    return onlyKnown(sources, {u"kinds"_s, u"nodes"_s}, u"\"sources\""_s);
}

bool TemplateReader::takeStep(const QJsonValue &value, BuildStep *step)
{
    const QJsonObject object = value.toObject();
    step->name = text(object, u"name"_s);
    step->command = text(object, u"command"_s);
    step->inputs = texts(object, u"inputs"_s);
    step->outputs = texts(object, u"outputs"_s);
    if (step->name.isEmpty() || step->command.isEmpty())
        fail(u"A step has a \"name\" and a \"command\""_s);
    return onlyKnown(object, {u"name"_s, u"command"_s, u"inputs"_s, u"outputs"_s}, u"A step"_s);
}

// A key that is written wrongly would be left out in silence.
bool TemplateReader::onlyKnown(const QJsonObject &object, const QStringList &keys,
                               const QString &place)
{
    for (const QString &key : object.keys()) {
        if (!keys.contains(key))
            fail(u"%1 has no \"%2\"; it may have %3"_s.arg(place, key, keys.join(u", "_s)));
    }
    return problem.isEmpty();
}

QString TemplateReader::text(const QJsonObject &object, const QString &key)
{
    const QJsonValue value = object[key];
    if (!value.isUndefined() && !value.isString())
        fail(u"The value of \"%1\" is no text"_s.arg(key));
    return value.toString();
}

QStringList TemplateReader::texts(const QJsonObject &object, const QString &key)
{
    QStringList all;
    const QJsonValue value = object[key];
    bool isList = value.isUndefined() || value.isArray();
    for (const QJsonValue &element : value.toArray()) {
        isList = isList && element.isString();
        all.append(element.toString());
    }
    if (!isList)
        fail(u"The value of \"%1\" is no list of texts"_s.arg(key));
    return all;
}

bool TemplateReader::fail(const QString &reason)
{
    if (problem.isEmpty())
        problem = u"%1: %2"_s.arg(file, reason);
    return false;
}

} // namespace MorvalenCore
