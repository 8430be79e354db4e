#include "component/IdReferences.h"

#include "component/ComponentTree.h"

#include <expat.h>

#include <algorithm>
#include <memory>

namespace MorvalenCore {

namespace {

bool isOneOf(QByteArrayView word, std::initializer_list<QByteArrayView> list)
{
    return std::find(list.begin(), list.end(), word) != list.end();
}

QByteArrayView localPart(const char *name)
{
    const QByteArrayView whole(name);
    return whole.sliced(whole.lastIndexOf(':') + 1);
}

bool isWordCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_'
        || c == '.' || c == '-' || c == ':' || static_cast<uchar>(c) >= 0x80;
}

} // namespace

// One pass of expat over a document that looks for words in attributes and texts.
class IdScanner
{
public:
    IdScanner(IdReferences &target, QList<XmlNode> parameterNodes)
        : references(target),
          parameters(std::move(parameterNodes)),
          parser(XML_ParserCreate(nullptr), XML_ParserFree)
    {
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
    static void XMLCALL onStart(void *self, const XML_Char *name, const XML_Char **attributes)
    {
        static_cast<IdScanner *>(self)->start(name, attributes);
    }

    static void XMLCALL onEnd(void *self, const XML_Char *)
    {
        static_cast<IdScanner *>(self)->flush();
    }

    static void XMLCALL onText(void *self, const XML_Char *text, int length)
    {
        auto *scanner = static_cast<IdScanner *>(self);
        if (!scanner->isName)
            scanner->text.append(text, length);
    }

    void start(const char *name, const char **attributes)
    {
        flush();
        // Texts for people, and names, which are looked up by nobody.
        isName =
            isOneOf(localPart(name), {"name", "displayName", "shortDescription", "description"});
        for (; *attributes != nullptr; attributes += 2) {
            // An id of its own is no reference.
            if (!isOneOf(localPart(attributes[0]), {"id", "parameterId"}))
                look(attributes[1]);
        }
    }

    void flush()
    {
        look(text);
        text.clear();
        isName = false;
    }

    // An id may hold dots, hyphens and colons itself, which also stand between ids.
    void look(QByteArrayView words)
    {
        for (qsizetype from = 0; from < words.size();) {
            qsizetype to = from;
            while (to < words.size() && isWordCharacter(words[to]))
                ++to;
            if (to > from)
                lookWord(words.sliced(from, to - from).toByteArray());
            from = to + 1;
        }
    }

    void lookWord(const QByteArray &word)
    {
        add(word);
        for (const char separator : {'-', '.', ':'}) {
            if (!word.contains(separator))
                continue;
            for (const QByteArray &part : word.split(separator))
                add(part);
        }
    }

    void add(const QByteArray &word)
    {
        const auto users = references.users.find(word);
        if (users == references.users.end())
            return;
        const XmlNode user = currentParameter();
        if (!users->contains(user))
            users->append(user);
    }

    XmlNode currentParameter()
    {
        const XmlTree &xml = references.tree.xml;
        const qsizetype at = XML_GetCurrentByteIndex(parser.get());
        while (next < parameters.size() && xml.endOffset(parameters[next]) <= at)
            ++next;
        const bool inside = next < parameters.size() && xml.offset(parameters[next]) <= at;
        return inside ? parameters[next] : 0;
    }

    IdReferences &references;
    QList<XmlNode> parameters;
    qsizetype next = 0;
    std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser;
    QByteArray text;
    bool isName = false;
};

IdReferences::IdReferences(const ComponentTree &componentTree) : tree(componentTree)
{
    const XmlNode list = tree.standardChild(XmlTree::root, "parameters");
    QList<XmlNode> parameters = tree.standardChildren(list, "parameter");
    for (const XmlNode parameter : std::as_const(parameters)) {
        QByteArray id = tree.attribute(parameter, "parameterId").toUtf8();
        if (id.isEmpty())
            id = tree.attribute(tree.standardChild(parameter, "value"), "id").toUtf8();
        if (!id.isEmpty()) {
            ids.insert(parameter, id);
            users.insert(id, {});
        }
    }
    if (!ids.isEmpty())
        IdScanner(*this, std::move(parameters)).scan(tree.xml.originalBytes());
}

bool IdReferences::isReferenced(XmlNode parameter) const
{
    const QList<XmlNode> all = users.value(ids.value(parameter));
    return std::any_of(all.begin(), all.end(), [&](XmlNode user) {
        return user != parameter && (user == 0 || tree.xml.isAlive(user));
    });
}

} // namespace MorvalenCore
