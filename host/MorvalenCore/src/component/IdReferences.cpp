#include "component/IdReferences.h"

#include "component/ComponentTree.h"
#include "component/ipxact.h"

#include <expat.h>

#include <algorithm>
#include <memory>

namespace MorvalenCore {

namespace {

// Between the namespace and the local part of a name.
constexpr char nameSeparator = ' ';

// Texts for people, and names, which are looked up by nobody.
constexpr QByteArrayView saysNothing[] = {"vendor",      "library",         "name",
                                          "version",     "displayName",     "author",
                                          "description", "shortDescription"};
// An id of its own is no reference.
constexpr QByteArrayView attributeSaysNothing[] = {"id", "parameterId", "name"};

template <typename List>
bool holds(const List &list, QByteArrayView word)
{
    return std::find(std::begin(list), std::end(list), word) != std::end(list);
}

QByteArrayView localPart(const char *name)
{
    const QByteArrayView whole(name);
    return whole.sliced(whole.lastIndexOf(nameSeparator) + 1);
}

bool isWordCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_'
        || c == '.' || c == '-' || c == ':' || static_cast<uchar>(c) >= 0x80;
}

// Where the pieces of a word end that stand between any of the separators.
QList<qsizetype> endsOfPieces(QByteArrayView word, QByteArrayView separators)
{
    QList<qsizetype> ends;
    for (qsizetype at = 0; at < word.size(); ++at) {
        if (separators.contains(word[at]))
            ends.append(at);
    }
    return ends << word.size();
}

} // namespace

// One pass of expat over a document that looks for words in attributes and texts. It counts the
// files and parameters on its way, and so knows in which of them it is.
class IdScanner
{
public:
    explicit IdScanner(IdReferences &target)
        : references(target),
          standard(Ipxact::namespaceOf(target.tree.generation()).toByteArray() + nameSeparator),
          own(QByteArray(Ipxact::ownNamespace) + nameSeparator),
          parser(XML_ParserCreateNS(nullptr, nameSeparator), XML_ParserFree)
    {
        const ComponentTree &tree = references.tree;
        parameters.nodes =
            tree.standardChildren(tree.standardChild(XmlTree::root, "parameters"), "parameter");
        for (const XmlNode set :
             tree.standardChildren(tree.standardChild(XmlTree::root, "fileSets"), "fileSet"))
            files.nodes += tree.standardChildren(set, "file");
        XML_SetUserData(parser.get(), this);
        XML_SetElementHandler(parser.get(), onStart, onEnd);
        XML_SetCharacterDataHandler(parser.get(), onText);
    }

    void scan(const QByteArray &bytes)
    {
        constexpr qsizetype slice = 1 << 20;
        for (qsizetype at = 0; at < bytes.size(); at += slice) {
            const qsizetype length = std::min(slice, bytes.size() - at);
            XML_Parse(parser.get(), bytes.data() + at, static_cast<int>(length),
                      at + length == bytes.size());
        }
    }

private:
    // The elements of one kind, in document order. They lie in the first element of a name below
    // the root.
    struct Kind
    {
        QList<XmlNode> nodes;
        qsizetype next = 0;
        bool isOver = false;
    };

    static void XMLCALL onStart(void *self, const XML_Char *name, const XML_Char **attributes)
    {
        static_cast<IdScanner *>(self)->start(name, attributes);
    }

    static void XMLCALL onEnd(void *self, const XML_Char *)
    {
        static_cast<IdScanner *>(self)->end();
    }

    static void XMLCALL onText(void *self, const XML_Char *text, int length)
    {
        auto *scanner = static_cast<IdScanner *>(self);
        if (!scanner->isSilent)
            scanner->text.append(text, length);
    }

    void start(const char *name, const char **attributes)
    {
        flush();
        path.append(QByteArrayView(name).startsWith(standard) ? localPart(name).toByteArray()
                                                              : QByteArray());
        findUser();
        const bool isOwn = QByteArrayView(name).startsWith(own);
        isSilent = isOwn || holds(saysNothing, localPart(name));
        for (; !isOwn && *attributes != nullptr; attributes += 2) {
            if (!holds(attributeSaysNothing, localPart(attributes[0])))
                references.count(attributes[1], user, 1);
        }
    }

    void end()
    {
        flush();
        if (path.size() == userDepth) {
            user = 0;
            userDepth = 0;
        }
        if (path.size() == 2) {
            parameters.isOver = parameters.isOver || path.last() == "parameters";
            files.isOver = files.isOver || path.last() == "fileSets";
        }
        path.removeLast();
    }

    void findUser()
    {
        if (path.size() == 3 && path[1] == "parameters" && path[2] == "parameter")
            take(parameters);
        else if (path.size() == 4 && path[1] == "fileSets" && path[2] == "fileSet"
                 && path[3] == "file")
            take(files);
    }

    void take(Kind &kind)
    {
        if (kind.isOver || kind.next == kind.nodes.size())
            return;
        user = kind.nodes[kind.next++];
        userDepth = path.size();
    }

    void flush()
    {
        references.count(text, user, 1);
        text.clear();
        isSilent = false;
    }

    IdReferences &references;
    QByteArray standard;
    QByteArray own;
    Kind parameters;
    Kind files;
    std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser;
    // The names of the open elements, empty for those that are not the standard's.
    QList<QByteArray> path;
    XmlNode user = 0;
    qsizetype userDepth = 0;
    QByteArray text;
    bool isSilent = false;
};

IdReferences::IdReferences(const ComponentTree &componentTree) : tree(componentTree)
{
    const XmlNode list = tree.standardChild(XmlTree::root, "parameters");
    for (const XmlNode parameter : tree.standardChildren(list, "parameter")) {
        QByteArray id = tree.attribute(parameter, "parameterId").toUtf8();
        if (id.isEmpty())
            id = tree.attribute(tree.standardChild(parameter, "value"), "id").toUtf8();
        if (!id.isEmpty()) {
            ids.insert(parameter, id);
            users.insert(id, {});
            longestId = std::max(longestId, id.size());
        }
    }
    if (!ids.isEmpty())
        IdScanner(*this).scan(tree.xml.bytes());
}

bool IdReferences::isReferenced(XmlNode parameter) const
{
    const QHash<XmlNode, int> all = users.value(ids.value(parameter));
    return std::any_of(all.keyValueBegin(), all.keyValueEnd(), [&](const auto &use) {
        const XmlNode user = use.first;
        return use.second > 0 && user != parameter && (user == 0 || tree.xml.isAlive(user));
    });
}

void IdReferences::valueChanged(XmlNode parameter, const QString &before, const QString &after)
{
    if (ids.isEmpty())
        return;
    count(before.toUtf8(), parameter, -1);
    count(after.toUtf8(), parameter, 1);
}

void IdReferences::count(QByteArrayView words, XmlNode user, int by)
{
    for (qsizetype from = 0; from < words.size();) {
        qsizetype to = from;
        while (to < words.size() && isWordCharacter(words[to]))
            ++to;
        if (to > from)
            countWord(words.sliced(from, to - from), user, by);
        from = to + 1;
    }
}

// An id may hold dots, hyphens and colons itself, which also stand between ids: every piece that
// begins and ends at a hyphen or a colon may be one, and the shortest ones between dots, too.
void IdReferences::countWord(QByteArrayView word, XmlNode user, int by)
{
    const QList<qsizetype> ends = endsOfPieces(word, "-:");
    for (qsizetype first = 0, from = 0; first < ends.size(); from = ends[first++] + 1) {
        for (qsizetype last = first; last < ends.size() && ends[last] - from <= longestId; ++last)
            countId(word.sliced(from, ends[last] - from), user, by);
    }
    for (const QByteArrayView separators : {".", "-:."}) {
        qsizetype from = 0;
        const QList<qsizetype> places = endsOfPieces(word, separators);
        for (const qsizetype end : places.size() > 1 ? places : QList<qsizetype>()) {
            countId(word.sliced(from, end - from), user, by);
            from = end + 1;
        }
    }
}

void IdReferences::countId(QByteArrayView id, XmlNode user, int by)
{
    const auto uses = users.find(QByteArray::fromRawData(id.data(), id.size()));
    if (uses != users.end())
        (*uses)[user] += by;
}

} // namespace MorvalenCore
