#pragma once

#include "component/DeclaredPrefixes.h"
#include "component/XmlIndex.h"

#include <expat.h>

#include <memory>

namespace MorvalenCore {

// One pass of expat over a document that builds its index. Used once.
class XmlReader
{
public:
    // All three must stay.
    XmlReader(const QByteArray &bytes, const XmlIndex::Wanted &wanted, const XmlLimits &limits);

    XmlIndex read();

private:
    static void XMLCALL onDeclaration(void *self, const XML_Char *version, const XML_Char *encoding,
                                      int standalone);
    static void XMLCALL onDoctype(void *self, const XML_Char *name, const XML_Char *system,
                                  const XML_Char *publicId, int hasSubset);
    static void XMLCALL onStart(void *self, const XML_Char *name, const XML_Char **attributes);
    static void XMLCALL onEnd(void *self, const XML_Char *name);

    void declaration(const char *encoding);
    void start(const char *name, const char **attributes);
    void watchPrefixes(const char *name, const char **attributes);
    void addElement(const char *name, const char **attributes);
    void end();
    void refuse(const QString &reason);
    bool refuseByFirstBytes();
    bool refuseByScan();
    void parse();
    void refuseByParser();
    QString parserReason() const;

    struct ParserDeleter
    {
        void operator()(XML_Parser target) const { XML_ParserFree(target); }
    };

    const QByteArray &bytes;
    const XmlIndex::Wanted &wanted;
    const XmlLimits &limits;
    std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserDeleter> parser;
    XmlIndex index;
    DeclaredPrefixes prefixes;
    // The innermost open element that is indexed.
    std::uint32_t current = 0;
    int depth = 0;
    // The depth below which nothing is indexed, while inside an element that is not wanted.
    int skipBelow = 0;
};

} // namespace MorvalenCore
