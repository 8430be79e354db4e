#include "tests/faults/writerkinds.h"

const std::vector<WriterKind> &writerKinds()
{
    static const std::vector<WriterKind> all = [] {
        std::vector<WriterKind> kinds = designWriters();
        for (auto *more : {settingsWriters, buildWriters, textWriters, windowWriters}) {
            for (const WriterKind &kind : more())
                kinds.push_back(kind);
        }
        return kinds;
    }();
    return all;
}
