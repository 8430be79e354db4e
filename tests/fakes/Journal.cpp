#include "tests/fakes/Journal.h"

using namespace Qt::Literals::StringLiterals;

bool Journal::perform(const QString &call, const std::function<void()> &effect)
{
    const bool succeeds = !failing.contains(call);
    if (succeeds && effect)
        effect();
    if (!silent)
        calls.append(call);
    if (const auto reaction = reactions.value(call))
        reaction();
    return succeeds;
}

void Journal::react(const QString &call, const std::function<void()> &reaction)
{
    reactions.insert(call, reaction);
}

QStringList Journal::take() { return std::exchange(calls, {}); }

QString callText(const char *name, std::initializer_list<QString> arguments)
{
    return QString::fromUtf8(name) + u'(' + QStringList(arguments).join(", "_L1) + u')';
}

QString callWord(bool value) { return value ? u"true"_s : u"false"_s; }
