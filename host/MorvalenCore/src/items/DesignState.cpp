#include "items/DesignState.h"

#include <Qtilities/paths.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace MorvalenCore {

DesignState::DesignState(std::unique_ptr<DesignDocument> document) : component(std::move(document))
{
}

DesignState::~DesignState() = default;

void DesignState::setDocument(std::unique_ptr<DesignDocument> document)
{
    component = std::move(document);
}

void DesignState::setDocument(const DocumentMaker &make)
{
    component.reset();
    makeDocument = make;
}

DesignDocument &DesignState::made() const
{
    component = makeDocument();
    return *component;
}

void DesignState::setPlaced(bool flag)
{
    placed = flag;
    resolvedFolder = flag ? Qtilities::Core::canonicalPath(document().folder()) : QString();
}

QString DesignState::folder() const { return placed ? document().folder() : QString(); }

bool DesignState::isReadOnly() const { return fileReadOnly || document().isReadOnly(); }

Status DesignState::change(const Edit &edit)
{
    if (isReadOnly())
        return Status::readOnly(u"The design \"%1\" is read-only"_s.arg(name()));
    const Status status = edit();
    if (status.isOk() && changed)
        changed();
    return status;
}

} // namespace MorvalenCore
