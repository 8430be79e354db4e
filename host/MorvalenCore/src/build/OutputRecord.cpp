#include "build/OutputRecord.h"

#include "build/buildpaths.h"

#include <Qtilities/atomicfile.h>
#include <Qtilities/regularfile.h>

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::readRegularFile;
using Qtilities::Core::Result;
using Qtilities::Core::Status;
using Qtilities::Core::writeFileAtomically;

namespace MorvalenCore {

namespace {

// In bytes; what is beyond is cut off, and then no record any more.
constexpr qint64 largestRecord = 256 << 20;

} // namespace

OutputRecord::OutputRecord(const QString &targetFolder, const QString &workingFolder)
    : target(targetFolder),
      working(workingFolder)
{
}

QString OutputRecord::fileName() { return u".morvalen_outputs"_s; }

QString OutputRecord::path() const { return target + u'/' + fileName(); }

Result<QList<MadeOutput>> OutputRecord::read() const
{
    QList<MadeOutput> outputs;
    const Result<QByteArray> content = readRegularFile(path(), largestRecord);
    if (!content.isOk() && !QFileInfo::exists(path()))
        return outputs;
    if (!content.isOk())
        return content.status().withText(
            u"Cannot read \"%1\": %2"_s.arg(path(), content.status().text()));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content.value(), &error);
    if (error.error != QJsonParseError::NoError)
        return Status::malformed(
            u"\"%1\" is no record of outputs: %2"_s.arg(path(), error.errorString()));
    const QJsonArray list = document.object().value(u"outputs"_s).toArray();
    for (const QJsonValue &entry : list) {
        const QString text = entry[u"path"_s].toString();
        const MadeOutput output {absolutePath(text, working), entry[u"configuration"_s].toString(),
                                 entry[u"version"_s].toString()};
        if (!text.isEmpty() && (isBelow(output.path, target) || isBelow(output.path, working)))
            outputs.append(output);
    }
    return outputs;
}

Status OutputRecord::write(const QList<MadeOutput> &outputs) const
{
    if (outputs.isEmpty()) {
        QFile record(path());
        if (record.remove() || !record.exists())
            return {};
        return Status::io(u"Cannot remove \"%1\": %2"_s.arg(path(), record.errorString()));
    }
    QJsonArray list;
    for (const MadeOutput &output : outputs)
        list.append(QJsonObject {{u"path"_s, pathSeenFrom(working, output.path)},
                                 {u"configuration"_s, output.configuration},
                                 {u"version"_s, output.version}});
    return writeFileAtomically(path(), QJsonDocument(QJsonObject {{u"outputs"_s, list}}).toJson());
}

} // namespace MorvalenCore
