#include "component/ComponentFormat.h"

#include "component/ComponentDocument.h"

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;

namespace MorvalenCore {

namespace {

Result<std::unique_ptr<DesignDocument>>
asDesignDocument(Result<std::unique_ptr<ComponentDocument>> document)
{
    if (!document.isOk())
        return document.status();
    return {std::move(document.value()), document.status()};
}

} // namespace

const ComponentFormat &ComponentFormat::instance()
{
    static const ComponentFormat format;
    return format;
}

QString ComponentFormat::fileName() const { return u"component.xml"_s; }

Result<std::unique_ptr<DesignDocument>> ComponentFormat::open(const QString &path) const
{
    return asDesignDocument(ComponentDocument::open(path));
}

Result<std::unique_ptr<DesignDocument>>
ComponentFormat::create(const DesignDocument::Identity &identity, const QString &path) const
{
    return asDesignDocument(ComponentDocument::create(identity, path));
}

} // namespace MorvalenCore
