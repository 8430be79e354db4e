#pragma once

#include <QStringView>

namespace MorvalenCore {

// What setters of the component's parts ask first; the reason in *error where it is not null.
namespace ItemCheck {

// what reads like "file".
bool isThere(bool there, QStringView what, QString *error);

// what reads like "name of a file set".
bool isGiven(const QString &text, QStringView what, QString *error);

} // namespace ItemCheck
} // namespace MorvalenCore
