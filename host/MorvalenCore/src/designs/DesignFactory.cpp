#include "designs/DesignFactory.h"

#include "component/ComponentFormat.h"
#include "design/Design.h"
#include "log/hostlog.h"
#include "structures/structures.h"

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;

namespace MorvalenCore {

QString DesignFactory::factoryName() const { return u"Design Factory"_s; }

QStringList DesignFactory::instanceTags() const
{
    QStringList tags = designTypeNames();
    for (const Registered &entry : registered)
        tags.append(entry.tag);
    return tags;
}

QObject *DesignFactory::createInstance(const Qtilities::Core::InstanceFactoryInfo &info)
{
    if (designTypeNames().contains(info.instanceTag)) {
        Result<std::unique_ptr<Design>> design =
            Design::create(ComponentFormat::instance(), info.instanceTag, info.instanceName);
        if (design.isOk())
            return std::move(design).value().release();
        logError(design.status().text());
        return nullptr;
    }
    const DesignManager::ObjectFactory *factory = find(info.instanceTag);
    if (!factory)
        return nullptr;
    QObject *object = factory->createInstance();
    if (object)
        object->setObjectName(info.instanceName);
    return object;
}

bool DesignFactory::add(const DesignManager::ObjectFactory *factory, const QString &tag)
{
    if (!factory || tag.isEmpty() || instanceTags().contains(tag))
        return false;
    registered.append({tag, factory});
    return true;
}

const DesignManager::ObjectFactory *DesignFactory::find(const QString &tag) const
{
    for (const Registered &entry : registered) {
        if (entry.tag == tag)
            return entry.factory;
    }
    return nullptr;
}

} // namespace MorvalenCore
