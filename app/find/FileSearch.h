#pragma once

#include "app/find/textmatching.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QThreadPool>

#include <atomic>
#include <memory>

// A search in many files, in threads. What was begun before ends when another one begins.
class FileSearch : public QObject
{
    Q_OBJECT

public:
    // More are not looked for.
    static constexpr qsizetype mostMatches = 20'000;

    explicit FileSearch(QObject *parent = nullptr);
    ~FileSearch() override;

    // Of files whose text is not what is on disk, the text is given.
    void start(const QStringList &files, const QHash<QString, QString> &texts,
               const textmatching::Pattern &pattern);
    void cancel();
    // Cancels, and waits until no thread works any more.
    void end();
    bool isRunning() const { return left > 0; }

Q_SIGNALS:
    // The matches of some files, those of a file in one piece and in order.
    void found(const QList<textmatching::Match> &matches);
    // All files were looked at, or enough was found.
    void ended();

private:
    using Stop = std::shared_ptr<std::atomic<qsizetype>>;

    void take(const Stop &of, const QList<textmatching::Match> &matches);

    QThreadPool pool;
    // How many matches may still come; the search that has it goes on as long as it is above 0.
    Stop room;
    int left = 0;
};
