#include "component/ComponentFormat.h"

#include "component/ComponentDocument.h"

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

const ComponentFormat &ComponentFormat::instance()
{
    static const ComponentFormat format;
    return format;
}

QString ComponentFormat::fileName() const { return u"component.xml"_s; }

DocumentFormat::Opened ComponentFormat::open(const QString &path) const
{
    ComponentDocument::Opened opened = ComponentDocument::open(path);
    return {std::move(opened.document), opened.error, opened.warnings};
}

std::unique_ptr<DesignDocument> ComponentFormat::create(const DesignDocument::Identity &identity,
                                                        const QString &path, QString *error) const
{
    return ComponentDocument::create(identity, path, error);
}

} // namespace MorvalenCore
