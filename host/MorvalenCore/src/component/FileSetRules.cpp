#include "component/FileSetRules.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

// "vhdlSource" of "vhdlSource-93": the same kind of file.
QString familyOf(const QString &type) { return type.section(u'-', 0, 0); }

QString fileNameOf(const QString &path)
{
    return path.sliced(1 + std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\')));
}

} // namespace

FileSetRules::FileSetRules(const ComponentFiles &componentFiles) : files(componentFiles) { }

FileSetId FileSetRules::choose(const QString &path, const QList<FileSetPatterns> &patterns)
{
    const QString type = familyOf(files.fileTypeOf(path));
    const QString fileName = fileNameOf(path);
    for (const FileSetId set : files.fileSets()) {
        // Whatever comes into this group counts as generated.
        if (files.isInGeneratedGroup(set))
            continue;
        if ((type != "unknown"_L1 && holds(set, type))
            || matches(files.name(set), fileName, patterns))
            return set;
    }
    return {};
}

bool FileSetRules::holds(FileSetId set, const QString &type)
{
    auto counts = typeCounts.find(set);
    if (counts == typeCounts.end()) {
        counts = typeCounts.insert(set, {});
        for (const FileId file : files.files(set))
            ++(*counts)[familyOf(files.fileType(file))];
    }
    return counts->value(type) > 0;
}

bool FileSetRules::matches(const QString &set, const QString &fileName,
                           const QList<FileSetPatterns> &patterns)
{
    const auto matchesOne = [&](const QString &pattern) {
        auto expression = expressions.find(pattern);
        if (expression == expressions.end())
            expression = expressions.insert(
                pattern, QRegularExpression::fromWildcard(pattern, Qt::CaseInsensitive));
        return expression->match(fileName).hasMatch();
    };
    return std::any_of(patterns.begin(), patterns.end(), [&](const FileSetPatterns &row) {
        return row.fileSet == set
            && std::any_of(row.patterns.begin(), row.patterns.end(), matchesOne);
    });
}

void FileSetRules::countFile(FileSetId set, const QString &type, int by)
{
    const auto counts = typeCounts.find(set);
    if (counts != typeCounts.end())
        (*counts)[familyOf(type)] += by;
}

} // namespace MorvalenCore
