// What the editor writes.

#include "app/editor/TextFile.h"
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

} // namespace

std::vector<WriterKind> textWriters()
{
    return {{"text", [] { return std::make_unique<TextWriter>(); }}};
}
