#pragma once

#include <Qtilities/Status.h>

#include <QStringView>

#include <initializer_list>

namespace MorvalenCore {

// What the setters of a component's parts ask before they change anything. Remembers the first
// answer that is no.
class EditCheck
{
public:
    // what reads like "file".
    EditCheck &isThere(bool there, QStringView what);
    // what reads like "name of a file set".
    EditCheck &isGiven(const QString &text, QStringView what);
    // Whether XML can carry the texts.
    EditCheck &isCarried(std::initializer_list<QStringView> texts);

    const Qtilities::Core::Status &status() const { return refusal; }

private:
    Qtilities::Core::Status refusal;
};

} // namespace MorvalenCore
