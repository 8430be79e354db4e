#include "items/DesignState.h"

#include <QFileInfo>

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

void DesignState::setPlaced(bool flag)
{
    placed = flag;
    resolvedFolder = flag ? QFileInfo(component->folder()).canonicalFilePath() : QString();
}

QString DesignState::folder() const { return placed ? component->folder() : QString(); }

bool DesignState::isReadOnly() const { return fileReadOnly || component->isReadOnly(); }

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
