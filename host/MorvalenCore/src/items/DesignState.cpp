#include "items/DesignState.h"

#include "log/hostlog.h"

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

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

bool DesignState::change(QString *error, const Edit &edit)
{
    QString reason;
    if (isReadOnly())
        reason = u"The design \"%1\" is read-only"_s.arg(name());
    else if (edit(&reason)) {
        if (changed)
            changed();
        return true;
    }
    if (error)
        *error = reason;
    else if (!reason.isEmpty())
        logWarning(reason);
    return false;
}

} // namespace MorvalenCore
