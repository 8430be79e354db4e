#include "ensemble/places.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QDir>

namespace ensemble {

namespace {

QString &folderOfCall()
{
    static QString path;
    return path;
}

} // namespace

void setFolderOfCall(const QString &path) { folderOfCall() = path; }

Answer folder(const Call &) { return QDir::toNativeSeparators(folderOfCall()); }

Answer session(const Call &)
{
    return QDir::toNativeSeparators(
        Qtilities::CoreGui::QtilitiesApplication::applicationSessionPath());
}

} // namespace ensemble
