#include "tests/commands/random/RandomCalls.h"

#include "tests/commands/random/vocabulary.h"

using namespace Qt::Literals::StringLiterals;

QList<QStringList> RandomCalls::draw(int count)
{
    QList<QStringList> calls;
    for (int i = 0; i < count; ++i)
        calls.append(step());
    return calls;
}

QStringList RandomCalls::step()
{
    const QString file = path(model.filePaths());
    const QString folder = path(model.folderPaths());
    const QString property = one(vocabulary::propertyNames);
    switch (number(16)) {
    case 0:
        return besides();
    case 1:
        return design();
    case 2:
    case 3:
    case 4:
    case 5:
        return collection(u"files"_s, file);
    case 6:
    case 7:
        return collection(u"folders"_s, folder);
    case 8:
    case 9:
        return collection(u"properties"_s, property);
    case 10:
    case 11:
    case 12:
        return item(u"sfile"_s, u"actual_path"_s, file);
    case 13:
        return item(u"sfolder"_s, u"actual_path"_s, folder);
    default:
        return item(u"sproperty"_s, u"name"_s, property);
    }
}

QStringList RandomCalls::besides()
{
    const int which = number(8);
    if (which == 0)
        return {reopen};
    if (which < 5)
        return {makeFile, path(model.filePaths().first(10))};
    if (which < 7)
        return {makeFolder, path(model.folderPaths().first(9))};
    return {removeFile, path(model.filePaths().first(10))};
}

QStringList RandomCalls::value()
{
    const auto &value = vocabulary::values[number(int(vocabulary::values.size()))];
    return {value.type, value.text};
}

QStringList RandomCalls::design()
{
    switch (number(10)) {
    case 0:
        return {u"design"_s, u"save"_s};
    case 1:
        return {u"design"_s, u"save"_s, model.folder() + u"/copy.xml"_s};
    case 2:
        if (number(2))
            return {u"design"_s, u"clean"_s};
        return {u"design"_s, u"clean"_s, one(vocabulary::truths)};
    case 3:
        return {u"design"_s, u"assign_physical_wfp"_s};
    case 4:
        return {u"design"_s, u"set"_s, u"name"_s, one(vocabulary::names)};
    case 5:
        return {u"design"_s, u"set"_s, one({u"read_only"_s, u"busy"_s}), one(vocabulary::truths)};
    case 6:
        // Read-only designs refuse nearly everything, so most of them do not stay so.
        return {u"design"_s, u"set"_s, u"read_only"_s, u"false"_s};
    default:
        return {u"design"_s, u"set"_s,
                one({u"vendor"_s, u"library"_s, u"description"_s, u"author"_s}),
                one(vocabulary::texts)};
    }
}

QStringList RandomCalls::collection(const QString &command, const QString &word)
{
    const QString what = one({u"add"_s, u"add"_s, u"add"_s, u"set_active"_s, u"set_active"_s,
                              u"remove"_s, u"delete"_s, u"contains"_s, u"category"_s, u"list"_s,
                              u"list"_s, u"set"_s, u"set"_s, u"all"_s, u"nonsense"_s});
    QStringList call {command, what};
    if (what == u"set") {
        call << word << value();
        if (number(2))
            call << one(vocabulary::truths);
        return number(8) ? call : call.first(2 + number(int(call.size()) - 2));
    }
    if (what == u"list" || what == u"all") {
        if (what == u"all")
            call[1] = one({u"remove_all"_s, u"delete_all"_s});
        for (int more = number(8); more > 4; --more)
            call << one(vocabulary::nodes);
        return call;
    }
    if (number(10))
        call << word;
    if (call.size() > 2 && number(10) == 0)
        call << u"ignored"_s;
    return call;
}

QStringList RandomCalls::item(const QString &command, const QString &what, const QString &word)
{
    QStringList call {command};
    switch (number(8)) {
    case 0:
        return call << one({u"exists"_s, u"open"_s, u"get"_s, u"set"_s, u"property"_s, u"x"_s});
    case 1:
        if (command == u"sproperty" || number(2))
            return call << u"get"_s << one({what, u"category"_s});
        return call << u"get"_s << one({u"revision"_s, u"vcs"_s});
    case 2:
        return call << u"set"_s << what << word;
    case 3:
        return call << u"set"_s << u"category"_s
                    << one(vocabulary::categories + QStringList {vocabulary::withZero});
    case 4:
        return call << u"property"_s << one({u"exists"_s, u"get"_s})
                    << one(vocabulary::sharedNames);
    case 5:
        return call << u"property"_s << u"remove"_s << one(vocabulary::sharedNames);
    default:
        call << u"property"_s << u"set"_s << one(vocabulary::sharedNames) << value();
        if (number(2))
            call << one(vocabulary::truths);
        return number(8) ? call : call.first(4 + number(2));
    }
}
