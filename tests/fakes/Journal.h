#pragma once

#include <QHash>
#include <QSet>
#include <QStringList>

#include <functional>

// What was asked of the fake host, call by call, so that a test compares the whole sequence. A test
// names in advance the calls that are to fail, and what is to happen right after a call.
class Journal
{
public:
    // Notes a call and carries it out unless it is to fail. What carries it out must need nothing
    // that a reaction destroys. Returns whether it was carried out.
    bool perform(const QString &call, const std::function<void()> &effect = {});

    // A call that is to fail, and something that is to happen after a call.
    void fail(const QString &call) { failing.insert(call); }
    void react(const QString &call, const std::function<void()> &reaction);

    // The calls since the last time.
    QStringList take();

    // A silent journal keeps nothing; for measuring.
    void setSilent(bool flag) { silent = flag; }
    bool isSilent() const { return silent; }

private:
    QStringList calls;
    QSet<QString> failing;
    QHash<QString, std::function<void()>> reactions;
    bool silent = false;
};

// The text of a call: its name, and its arguments in parentheses.
QString callText(const char *name, std::initializer_list<QString> arguments = {});
QString callWord(bool value);
