#pragma once

#include "document/DocumentFormat.h"

namespace MorvalenCore {

// The format of IP-XACT component files, see ComponentDocument.
class ComponentFormat final : public DocumentFormat
{
public:
    static const ComponentFormat &instance();

    QString fileName() const override;
    Qtilities::Core::Result<std::unique_ptr<DesignDocument>>
    open(const QString &path) const override;
    Qtilities::Core::Result<std::unique_ptr<DesignDocument>>
    create(const DesignDocument::Identity &identity, const QString &path) const override;
};

} // namespace MorvalenCore
