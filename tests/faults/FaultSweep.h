#pragma once

#include "tests/faults/Writer.h"

#include <QMap>
#include <QStringList>

#include <functional>

namespace Faults {
struct Fault;
}

// Lets one writer meet faults, one after the other: each call of each kind, until the writer ends
// without having met it. After each: every file is the old one or the new one and whole, what was
// told is true, and the next write does it and leaves nothing else behind.
class FaultSweep
{
public:
    enum class Extent { Selection, Whole };

    explicit FaultSweep(const WriterKind &kind);

    void run(Extent extent);

    int faults = 0;
    int kills = 0;
    QStringList findings;

private:
    using Tree = QMap<QString, QByteArray>;

    // Both answer whether the fault was met.
    bool fails(const Faults::Fault &fault);
    bool isKilled(const Faults::Fault &fault);

    void begin();
    Tree tree() const;
    void checkAfter(const Faults::Fault &fault, const Qtilities::Core::Status &status);
    void checkFiles(const QString &when, bool mayLeaveOthers);
    void checkNext(const QString &when);
    bool isWhole(const QString &file, const QByteArray &content) const;
    void find(const QString &when, const QString &what);
    QString describe(const Faults::Fault &fault) const;

    const WriterKind &kind;
    QString folder;
    std::unique_ptr<Writer> writer;
    Tree before;
    Tree after;
};
