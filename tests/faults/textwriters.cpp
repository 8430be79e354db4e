// What the editor writes.

#include "app/editor/TextFile.h"
#include "app/keeping/KeptTexts.h"
#include "tests/faults/DesignsOnDisk.h"
#include "tests/faults/writerkinds.h"

#include <optional>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace {

class TextWriter : public Writer
{
public:
    void prepare(const QString &folder) override
    {
        path = folder + u"/text.v"_s;
        DesignsOnDisk::write(path, "old\n");
        startAnew();
    }

    Status write() override { return file->write(u"new\n"_s); }

    void startAnew() override
    {
        file.emplace(path);
        if (!file->read().isOk())
            qFatal("cannot read the text");
    }

private:
    QString path;
    std::optional<TextFile> file;
};

// Texts that are not saved, kept aside.
class KeptTextWriter : public Writer
{
public:
    explicit KeptTextWriter(bool isFirst) : hasOldOne(!isFirst) { }

    void prepare(const QString &folder) override
    {
        disk.emplace(folder);
        texts.emplace();
        if (hasOldOne && !keep("old").isOk())
            qFatal("cannot keep the first text");
    }

    Status write() override { return keep("new"); }

    // The text comes from the process that is gone to this one.
    void startAnew() override
    {
        texts.reset();
        texts.emplace();
        const auto found = texts->takeLeft();
        if (hasOldOne && found.value().size() != 1)
            qFatal("the text is lost");
        for (const KeptText &text : found.value()) {
            if (!texts->keep(text).isOk())
                qFatal("cannot keep what was left");
            texts->removeLeft(text);
        }
        texts->leaveAgain();
    }

private:
    Status keep(const char *text)
    {
        return texts->keep({u"/designs/uart/a.v"_s, "base", QString::fromLatin1(text), 0,
                            QDateTime(QDate(2020, 1, 1), QTime(0, 0))});
    }

    bool hasOldOne;
    std::optional<DesignsOnDisk> disk;
    std::optional<KeptTexts> texts;
};

} // namespace

std::vector<WriterKind> textWriters()
{
    return {{"text", [] { return std::make_unique<TextWriter>(); }},
            {"kept text", [] { return std::make_unique<KeptTextWriter>(false); }},
            {"first kept text", [] { return std::make_unique<KeptTextWriter>(true); }}};
}
