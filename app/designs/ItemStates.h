#pragma once

#include <MorvalenCore/AbstractDesignLinkedItem.h>

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QThreadPool>

#include <atomic>
#include <optional>

// What the items that are shown are outside their designs: on disk and in version control. It is
// looked up in a thread of its own, those asked for last first, and kept; nobody waits for it.
class ItemStates : public QObject
{
    Q_OBJECT

public:
    // How long what was found is good, in milliseconds.
    static constexpr int lifetime = 2'000;

    explicit ItemStates(QObject *parent = nullptr);
    ~ItemStates() override;

    // Looks up nothing any more, and waits for what is under way, which gives up soon.
    void end();

    // What was found last; none when nothing is known yet. What is unknown or old is looked up,
    // and found() told when it is another one.
    std::optional<MorvalenCore::LinkedItemState>
    state(QObject *object, const MorvalenCore::AbstractDesignLinkedItem &item,
          const QModelIndex &index);

    // Makes everything old: it is looked up anew when it is asked for.
    void expire();

Q_SIGNALS:
    void found(const QModelIndex &index);

private:
    struct Entry
    {
        QPointer<QObject> item;
        std::optional<MorvalenCore::LinkedItemState> state;
        bool isAwaited = false;
        bool isOld = false;
        qint64 askedAt = 0;
    };
    struct Request
    {
        const QObject *key = nullptr;
        QPointer<QObject> item;
        QPersistentModelIndex index;
        MorvalenCore::AbstractDesignLinkedItem::StateLookup lookup;
    };

    void ask(const Request &request);
    void lookUpNext();
    void take(const MorvalenCore::LinkedItemState &state);
    void forgetSome();

    // By address, which a later item can have again.
    QHash<const QObject *, Entry> entries;
    QList<Request> waiting;
    // The one that is looked up; the thread sees nothing of it but the function.
    std::optional<Request> current;
    QElapsedTimer clock;
    std::atomic_bool cancelled = false;
    QThreadPool thread;
};
