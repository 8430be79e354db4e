#include "app/designs/dropping.h"

#include <QMimeData>
#include <QUrl>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;

namespace dropping {

QStringList mimeTypes() { return {u"text/uri-list"_s}; }

bool takesFiles(RowKind kind)
{
    constexpr RowKind others[] {RowKind::Root, RowKind::Properties, RowKind::Property,
                                RowKind::Builds, RowKind::Configuration};
    return std::find(std::begin(others), std::end(others), kind) == std::end(others);
}

bool mayDrop(const QMimeData &data, const TreeRow &target)
{
    const IDesign *design = target.isThere() ? target.design() : nullptr;
    if (!design || !takesFiles(target.kind) || design->isReadOnly()
        || design->workingFolderPath().isEmpty() || !data.hasUrls())
        return false;
    const QList<QUrl> urls = data.urls();
    return std::all_of(urls.begin(), urls.end(), [](const QUrl &url) { return url.isLocalFile(); });
}

QStringList paths(const QMimeData &data)
{
    QStringList paths;
    const QList<QUrl> urls = data.urls();
    for (const QUrl &url : urls)
        paths.append(url.toLocalFile());
    return paths;
}

} // namespace dropping
