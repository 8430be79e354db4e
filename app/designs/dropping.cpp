#include "app/designs/dropping.h"

#include <QCoreApplication>
#include <QDir>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;

namespace dropping {

namespace {

const QString ownType = u"application/x-morvalen-files"_s;

// Of the data that was made last.
QByteArray &ownMark()
{
    static QByteArray mark;
    return mark;
}

} // namespace

QStringList mimeTypes() { return {ownType, u"text/uri-list"_s}; }

QMimeData *dataOf(const QList<TreeRow> &files)
{
    static int count = 0;
    ownMark() =
        QByteArray::number(QCoreApplication::applicationPid()) + ' ' + QByteArray::number(++count);
    auto *data = new QMimeData;
    QList<QUrl> urls;
    QStringList paths;
    for (const TreeRow &row : files) {
        if (!row.file())
            continue;
        urls.append(QUrl::fromLocalFile(row.file()->actualPath()));
        paths.append(QDir::toNativeSeparators(row.file()->actualPath()));
    }
    data->setUrls(urls);
    data->setText(paths.join(u'\n'));
    data->setData(ownType, ownMark());
    return data;
}

bool isOwn(const QMimeData &data)
{
    return data.hasFormat(ownType) && data.data(ownType) == ownMark();
}

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
