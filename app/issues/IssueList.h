#pragma once

#include "app/issues/Issue.h"

#include <QList>
#include <QObject>
#include <QStringList>

#include <functional>

// The issues that there are, by the build or script they came from.
class IssueList : public QObject
{
    Q_OBJECT

public:
    // Of a source more are only counted.
    static constexpr qsizetype mostOfSource = 2000;

    struct Source
    {
        // What tells it from others, and what users see.
        QString key;
        QString title;
        // Errors before warnings before notes, each in the order in which they came.
        QList<Issue> issues;
        // How many are not in the list.
        qsizetype leftOut = 0;
    };

    using QObject::QObject;

    const QList<Source> &sources() const { return all; }

    void add(const QString &key, const QString &title, const QList<Issue> &issues);
    // Drops those that a step of the source was said to have.
    void dropStep(const QString &key, const QString &step);
    // Drops those of steps that are not named.
    void keepSteps(const QString &key, const QStringList &steps);
    void drop(const QString &key);
    void clear();

Q_SIGNALS:
    // Not more often than control returns to the event loop.
    void changed();

private:
    Source *find(const QString &key);
    void remove(const QString &key, const std::function<bool(const Issue &)> &goes);
    void tell();

    QList<Source> all;
    bool isTelling = false;
};
