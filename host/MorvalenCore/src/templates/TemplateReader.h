#pragma once

#include <MorvalenCore/ConfigurationTemplate.h>

#include <QJsonObject>

namespace MorvalenCore {

// Reads a template from its file. What is wrong with it is told with the file and, as far as it is
// known, the line or the key.
class TemplateReader
{
public:
    static Qtilities::Core::Result<ConfigurationTemplate> read(const QString &name,
                                                               const QString &path);

private:
    explicit TemplateReader(const QString &path) : file(path) { }

    bool take(const QJsonObject &object, ConfigurationTemplate *made);
    bool takeSources(const QJsonObject &sources, ConfigurationTemplate *made);
    bool takeStep(const QJsonValue &value, BuildStep *step);
    bool onlyKnown(const QJsonObject &object, const QStringList &keys, const QString &place);
    QString text(const QJsonObject &object, const QString &key);
    QStringList texts(const QJsonObject &object, const QString &key);
    bool fail(const QString &reason);

    QString file;
    QString problem;
};

} // namespace MorvalenCore
