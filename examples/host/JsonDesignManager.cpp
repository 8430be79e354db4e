#include "JsonDesignManager.h"

#include "JsonDesign.h"

#include <QFile>
#include <QJsonDocument>
#include <QSaveFile>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;

Status JsonDesignManager::read()
{
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly))
        return in.exists() ? Status::io(u"\"%1\" cannot be read"_s.arg(file)) : Status();
    const QJsonDocument document = QJsonDocument::fromJson(in.readAll());
    if (!document.isArray())
        return Status::malformed(u"\"%1\" is no array of designs"_s.arg(file));
    for (const QJsonValue &object : document.array()) {
        open.append(new JsonDesign(*this, object.toObject()));
        open.constLast()->setParent(this);
    }
    active = open.value(0);
    return {};
}

Status JsonDesignManager::write() const
{
    QJsonArray objects = closed;
    for (const JsonDesign *design : open)
        objects.append(design->toJson());
    QSaveFile out(file);
    if (out.open(QIODevice::WriteOnly) && out.write(QJsonDocument(objects).toJson()) >= 0
        && out.commit())
        return {};
    return Status::io(u"\"%1\" cannot be written: %2"_s.arg(file, out.errorString()));
}

QStringList JsonDesignManager::openDesignIds() const
{
    QStringList ids;
    for (const JsonDesign *design : open)
        ids.append(design->id(u"."_s));
    return ids;
}

IDesign *JsonDesignManager::design(const QString &id) const
{
    return open.value(openDesignIds().indexOf(id));
}

QList<IDesign *> JsonDesignManager::activeDesigns() const
{
    return active ? QList<IDesign *> {active} : QList<IDesign *>();
}

void JsonDesignManager::setActiveDesign(const QString &id)
{
    if (JsonDesign *const design = open.value(openDesignIds().indexOf(id)))
        active = design;
}

Status JsonDesignManager::tryAttachDesign(IDesign *design, bool makeActive)
{
    auto *const taken = qobject_cast<JsonDesign *>(design->objectBase());
    if (!taken || openDesignIds().contains(design->id(u"."_s)))
        return Status::alreadyExists(u"The design \"%1\" is open already"_s.arg(design->name()));
    open.append(taken);
    taken->setParent(this);
    if (makeActive)
        active = taken;
    return write();
}

Status JsonDesignManager::tryCloseDesign(const QString &id, bool deleteWorkingFolder)
{
    const qsizetype index = openDesignIds().indexOf(id);
    if (index < 0)
        return Status::notFound(u"There is no open design \"%1\""_s.arg(id));
    JsonDesign *const design = open.takeAt(index);
    if (!deleteWorkingFolder)
        closed.append(design->toJson());
    // A script may still be in the middle of it.
    design->deleteLater();
    active = open.value(0);
    return write();
}

QObject *JsonDesignManager::createInstance(const Qtilities::Core::InstanceFactoryInfo &)
{
    return new JsonDesign(*this, {});
}
