#include "JsonDesign.h"

#include "JsonDesignManager.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignFile;
using MorvalenCore::DesignProperty;
using Qtilities::Core::QtilitiesProperty;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace {

// A file of a design: a path. What else a file can be asked, its bases answer.
class JsonFile : public DesignFile
{
public:
    JsonFile(const QString &filePath, QObject *design) : DesignFile(design), path(filePath) { }

    QString actualPath() const override { return path; }

private:
    QString path;
};

// A property of a design: a name and a value that scripts can change.
class JsonProperty : public DesignProperty
{
public:
    JsonProperty(const QtilitiesProperty &property, QObject *design)
        : DesignProperty(design),
          data(property)
    {
    }

    QtilitiesProperty propertyData() const override { return data; }
    Status trySetValue(const QVariant &value) override
    {
        data.setValue(value);
        return {};
    }

private:
    QtilitiesProperty data;
};

} // namespace

JsonDesign::JsonDesign(const JsonDesignManager &theManager, const QJsonObject &object)
    : manager(theManager),
      texts(object)
{
    for (const QJsonValue &file : texts.take("files"_L1).toArray())
        files.append(new JsonFile(absolute(file.toString()), this));
    const QJsonObject values = texts.take("properties"_L1).toObject();
    for (auto value = values.begin(); value != values.end(); ++value)
        allProperties.append(new JsonProperty({value.key(), value->toVariant()}, this));
}

QJsonObject JsonDesign::toJson() const
{
    QJsonArray paths;
    for (const DesignFile *file : files)
        paths.append(QDir(workingFolderPath()).relativeFilePath(file->actualPath()));
    QJsonObject values;
    for (const DesignProperty *property : allProperties)
        values[property->getName()] = QJsonValue::fromVariant(property->propertyData().value());
    QJsonObject object = texts;
    object["files"_L1] = paths;
    object["properties"_L1] = values;
    return object;
}

Status JsonDesign::set(const char *key, const QString &text)
{
    QJsonObject changed = texts;
    changed[QLatin1StringView(key)] = text;
    std::swap(texts, changed);
    if (manager.openDesignIds().count(id(u"."_s)) < 2)
        return {};
    std::swap(texts, changed);
    return Status::alreadyExists(u"Another design is \"%1\" already"_s.arg(text));
}

QString JsonDesign::workingFolderPath() const { return QFileInfo(componentFileName()).path(); }

QString JsonDesign::componentFileName() const { return manager.fileName(); }

Status JsonDesign::trySaveToComponentFile() { return manager.write(); }

QString JsonDesign::absolute(const QString &path) const
{
    return QDir::cleanPath(QDir(workingFolderPath()).absoluteFilePath(path));
}

Result<DesignFile *> JsonDesign::tryAddFile(const QString &path, const QString &, bool)
{
    if (path.isEmpty())
        return Status::invalidArgument(u"A file needs a path"_s);
    if (fileByActualPath(absolute(path), false))
        return Status::alreadyExists(u"The design has the file \"%1\" already"_s.arg(path));
    files.append(new JsonFile(absolute(path), this));
    return files.constLast();
}

Status JsonDesign::tryRemoveFile(const QString &path)
{
    DesignFile *const file = fileByActualPath(absolute(path), false);
    if (!files.removeOne(file))
        return Status::notFound(u"The design has no file \"%1\""_s.arg(path));
    delete file;
    return {};
}

Result<DesignProperty *> JsonDesign::tryAddProperty(const QString &name,
                                                    const Qtilities::Core::QtilitiesCategory &,
                                                    const QVariant &value, bool readOnly)
{
    if (name.isEmpty() || propertyByName(name))
        return Status::alreadyExists(u"The design cannot have another \"%1\""_s.arg(name));
    QtilitiesProperty data(name, value);
    data.setReadOnly(readOnly);
    allProperties.append(new JsonProperty(data, this));
    return allProperties.constLast();
}

Status JsonDesign::tryRemoveProperty(const QString &name)
{
    DesignProperty *const property = propertyByName(name);
    if (!allProperties.removeOne(property))
        return Status::notFound(u"The design has no property \"%1\""_s.arg(name));
    delete property;
    return {};
}
