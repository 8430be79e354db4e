#include <Qtilities/Status.h>

namespace Qtilities::Core {

using namespace Qt::Literals::StringLiterals;

Status::Status(Kind kind, const QString &sentence)
    : state(std::make_shared<const State>(State {kind, sentence, {}}))
{
    Q_ASSERT(kind != Kind::Ok);
}

QString Status::kindWord() const
{
    switch (kind()) {
    case Kind::Ok:
        return u"ok"_s;
    case Kind::InvalidArgument:
        return u"invalid_argument"_s;
    case Kind::NotFound:
        return u"not_found"_s;
    case Kind::AlreadyExists:
        return u"already_exists"_s;
    case Kind::ReadOnly:
        return u"read_only"_s;
    case Kind::Busy:
        return u"busy"_s;
    case Kind::Conflict:
        return u"conflict"_s;
    case Kind::Malformed:
        return u"malformed"_s;
    case Kind::Io:
        return u"io"_s;
    case Kind::Cancelled:
        return u"cancelled"_s;
    case Kind::Failed:
        return u"failed"_s;
    case Kind::Unsupported:
        return u"unsupported"_s;
    }
    Q_UNREACHABLE();
}

void Status::addWarning(const QString &text) { addRemarks({{false, text}}); }

void Status::addStep(const Status &step)
{
    addRemarks(step.remarks());
    if (!step.isOk())
        addRemarks({{true, step.text()}});
}

Status Status::after(const Status &step) const
{
    if (!step.state)
        return *this;
    Status both = isOk() ? Status() : Status(kind(), text());
    both.addStep(step);
    both.addRemarks(remarks());
    return both;
}

void Status::addRemarks(const QList<Remark> &further)
{
    if (further.isEmpty())
        return;
    State next = state ? *state : State();
    next.remarks += further;
    state = std::make_shared<const State>(std::move(next));
}

Status Status::withText(const QString &sentence) const
{
    if (isOk())
        return *this;
    Status other(kind(), sentence);
    other.addRemarks(remarks());
    return other;
}

bool Status::toErrorText(QString *errorText) const
{
    if (errorText && !isOk())
        *errorText = text();
    return isOk();
}

} // namespace Qtilities::Core
