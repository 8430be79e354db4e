#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QList>
#include <QString>

#include <memory>
#include <optional>

namespace Qtilities::Core {

// How something ended: ok, or a kind of failure that code can act on and one sentence without a
// final line feed that people can read. It is what the host's operations return; nothing is
// logged by them. Either can carry remarks: what the user should know although it did not decide
// the end. An ok status without remarks costs no more than a null pointer.
class [[nodiscard]] Status
{
public:
    enum class Kind {
        Ok,
        // What was asked for makes no sense, whatever the state of things.
        InvalidArgument,
        // What it is about is not there, or there already.
        NotFound,
        AlreadyExists,
        // It must not be changed: a read-only design, a file without write permission.
        ReadOnly,
        // Something under way must end first.
        Busy,
        // Somebody else has changed it meanwhile.
        Conflict,
        // What was read is not of the form that it should be.
        Malformed,
        // The disk or another program would not do it.
        Io,
        // It was begun and stopped on demand.
        Cancelled,
        // It ran to its end, and a part of it failed, such as a step of a build.
        Failed,
        // This kind of object cannot do it at all.
        Unsupported
    };

    Status() = default;
    // The kind of a failure; the sentence says what failed and why. Cold, so that compilers put the
    // making of sentences apart from what is done when all goes well.
    [[gnu::cold]] QTILITIES_EXPORT Status(Kind kind, const QString &sentence);

    static Status invalidArgument(const QString &text) { return {Kind::InvalidArgument, text}; }
    static Status notFound(const QString &text) { return {Kind::NotFound, text}; }
    static Status alreadyExists(const QString &text) { return {Kind::AlreadyExists, text}; }
    static Status readOnly(const QString &text) { return {Kind::ReadOnly, text}; }
    static Status busy(const QString &text) { return {Kind::Busy, text}; }
    static Status conflict(const QString &text) { return {Kind::Conflict, text}; }
    static Status malformed(const QString &text) { return {Kind::Malformed, text}; }
    static Status io(const QString &text) { return {Kind::Io, text}; }
    static Status cancelled(const QString &text) { return {Kind::Cancelled, text}; }
    static Status failed(const QString &text) { return {Kind::Failed, text}; }
    static Status unsupported(const QString &text) { return {Kind::Unsupported, text}; }

    bool isOk() const { return kind() == Kind::Ok; }
    Kind kind() const { return state ? state->kind : Kind::Ok; }

    // The sentence; empty when it is ok.
    QString text() const { return state ? state->text : QString(); }

    // The kind as a lower-case word that never changes, for scripts: "ok", "not_found".
    QTILITIES_EXPORT QString kindWord() const;

    // Something to know of, or something that failed on the way; in the order in which it happened.
    struct Remark
    {
        bool isFailure = false;
        QString text;

        bool operator==(const Remark &) const = default;
    };
    QList<Remark> remarks() const { return state ? state->remarks : QList<Remark>(); }
    QTILITIES_EXPORT void addWarning(const QString &text);
    // Of a step: its remarks, and its sentence when it failed.
    QTILITIES_EXPORT void addStep(const Status &step);
    // The same with what an earlier step has said in front.
    QTILITIES_EXPORT Status after(const Status &step) const;

    // The same failure in another sentence, such as one that says where; what is ok stays so.
    QTILITIES_EXPORT Status withText(const QString &sentence) const;

    // For callers that can only take a bool and an error text: whether it is ok, and when it is
    // not, the sentence in *errorText, which may be null.
    QTILITIES_EXPORT bool toErrorText(QString *errorText) const;

private:
    struct State
    {
        Kind kind = Kind::Ok;
        QString text;
        QList<Remark> remarks;
    };

    void addRemarks(const QList<Remark> &further);

    std::shared_ptr<const State> state;
};

// A value, or why there is none.
template <typename Value>
class [[nodiscard]] Result
{
public:
    Result(Value result) : theValue(std::move(result)) { }
    // The value with the remarks of how it was made.
    Result(Value result, const Status &ok) : theStatus(ok), theValue(std::move(result))
    {
        Q_ASSERT(theStatus.isOk());
    }
    Result(const Status &failure) : theStatus(failure) { Q_ASSERT(!theStatus.isOk()); }

    bool isOk() const { return theValue.has_value(); }
    const Status &status() const { return theStatus; }

    // Only when it is ok.
    const Value &value() const & { return *theValue; }
    Value &value() & { return *theValue; }
    Value &&value() && { return *std::move(theValue); }

    // For callers that can only take a value and an error text: the value, or the fallback with
    // the sentence in *errorText, which may be null.
    Value valueOr(Value fallback, QString *errorText = nullptr) &&
    {
        return theStatus.toErrorText(errorText) ? *std::move(theValue) : std::move(fallback);
    }

private:
    Status theStatus;
    std::optional<Value> theValue;
};

} // namespace Qtilities::Core
