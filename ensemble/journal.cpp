#include "ensemble/journal.h"

#include "ensemble/ensemble.h"

#include <Qtilities/atomicfile.h>

#include <QDir>

#include <utility>

namespace ensemble {

namespace {

JournalText &journalText()
{
    static auto *const text = new JournalText;
    return *text;
}

} // namespace

void setJournal(JournalText text) { journalText() = std::move(text); }

Answer journal(const Call &call)
{
    const QString text = journalText() ? journalText()() : QString();
    if (call.count() == 0)
        return text;
    const QString file = QDir::cleanPath(QDir().absoluteFilePath(call.argument(0)));
    const auto written = Qtilities::Core::writeFileAtomically(file, text.toUtf8());
    return written.isOk() ? Answer(QDir::toNativeSeparators(file)) : Answer::of(written);
}

} // namespace ensemble
