#include "app/find/FileSearch.h"

#include <QPointer>

using textmatching::Match;
using textmatching::Pattern;

namespace {

// Files that are looked at in one go.
constexpr qsizetype filesOfPart = 200;

} // namespace

FileSearch::FileSearch(QObject *parent) : QObject(parent) { }

FileSearch::~FileSearch() { end(); }

void FileSearch::end()
{
    cancel();
    pool.waitForDone();
}

void FileSearch::start(const QStringList &files, const QHash<QString, QString> &texts,
                       const Pattern &pattern)
{
    cancel();
    const Stop stop = std::make_shared<std::atomic<qsizetype>>(mostMatches);
    room = stop;
    for (qsizetype first = 0; first < files.size(); first += filesOfPart) {
        const QStringList part = files.mid(first, filesOfPart);
        ++left;
        pool.start([this, part, texts, pattern, stop] {
            QList<Match> matches;
            for (const QString &file : part) {
                const qsizetype most = *stop;
                if (most <= 0)
                    break;
                const auto text = texts.find(file);
                const QList<Match> inThis = text == texts.end()
                    ? textmatching::inFile(file, pattern, most)
                    : textmatching::inBytes(file, text->toUtf8(), pattern, most);
                *stop -= inThis.size();
                matches += inThis;
            }
            // This waits for the pool before it goes.
            QMetaObject::invokeMethod(
                this, [this, stop, matches] { take(stop, matches); }, Qt::QueuedConnection);
        });
    }
    if (files.isEmpty())
        QMetaObject::invokeMethod(this, &FileSearch::ended, Qt::QueuedConnection);
}

void FileSearch::cancel()
{
    if (room)
        *room = 0;
    room.reset();
    pool.clear();
    left = 0;
}

void FileSearch::take(const Stop &of, const QList<Match> &matches)
{
    if (of != room)
        return;
    if (!matches.isEmpty())
        Q_EMIT found(matches);
    if (of == room && --left == 0)
        Q_EMIT ended();
}
