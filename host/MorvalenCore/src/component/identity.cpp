#include "component/identity.h"

#include "component/EditCheck.h"
#include "component/standardname.h"

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

struct FieldRow
{
    // An element of the component where it is standard, else an attribute of mv:design.
    QByteArrayView name;
    bool isStandard;
};

// In the order of DesignField; the author is found otherwise.
constexpr std::array<FieldRow, 8> fields {{
    {"vendor", true},
    {"library", true},
    {"name", true},
    {"version", true},
    {"description", true},
    {"author", false},
    {"type", false},
    {"structure", false},
}};

const FieldRow &rowOf(DesignField field) { return fields[static_cast<size_t>(field)]; }

bool isIdentity(DesignField field) { return field <= DesignField::Version; }

// What the element of an identity says for a text. The design's own text stands beside it where
// the standard has no room for it, so that the document stays valid.
QString elementText(DesignField field, const QString &text)
{
    switch (field) {
    case DesignField::Vendor:
    case DesignField::Library:
        return standardName(text, NameForm::Name);
    case DesignField::Name:
        return standardName(text, NameForm::NameToken);
    case DesignField::Version:
        return text.isEmpty() ? text : standardName(text, NameForm::NameToken);
    default:
        return text;
    }
}

// The element counts when somebody else has changed it since.
QString identityText(const ComponentTree &tree, DesignField field)
{
    const QByteArrayView name = rowOf(field).name;
    const QString element = tree.standardText(XmlTree::root, name);
    const XmlNode design = tree.design();
    const std::optional<QString> own =
        design != 0 ? tree.xml.attribute(design, name) : std::nullopt;
    return own && elementText(field, *own) == element ? *own : element;
}

void setIdentity(ComponentTree &tree, DesignField field, const QString &text)
{
    const QByteArrayView name = rowOf(field).name;
    const QString element = elementText(field, text);
    tree.xml.setText(tree.ensureStandard(XmlTree::root, name), element);
    if (element != text)
        tree.xml.setAttribute(tree.ensureDesign(), name, text);
    else
        IdentityFields::setDesignAttribute(tree, name, QString());
}

// The element author of another program, directly in the component's extensions.
XmlNode foreignAuthor(const ComponentTree &tree)
{
    const XmlNode extensions = tree.standardChild(XmlTree::root, "vendorExtensions");
    if (extensions == 0)
        return 0;
    XmlNode node = tree.xml.first(extensions);
    while (node != 0 && (tree.isOwn(node) || tree.xml.name(node).local != "author"))
        node = tree.xml.next(node);
    return node;
}

void setAuthor(ComponentTree &tree, const QString &author)
{
    const XmlNode foreign = foreignAuthor(tree);
    if (foreign != 0) {
        tree.xml.setText(foreign, author);
    } else if (!author.isEmpty()) {
        tree.xml.setText(tree.ensureOwn(tree.ensureDesign(), "author"), author);
    } else if (const XmlNode own = tree.ownChild(tree.design(), "author"); own != 0) {
        tree.removeAndPrune(own);
    }
}

void setElement(ComponentTree &tree, QByteArrayView name, const QString &text)
{
    if (!text.isEmpty())
        tree.xml.setText(tree.ensureStandard(XmlTree::root, name), text);
    else if (const XmlNode node = tree.standardChild(XmlTree::root, name); node != 0)
        tree.xml.remove(node);
}

// The standard has names there: letters, digits and a few marks.
bool isOdd(const QString &text)
{
    return !std::all_of(text.begin(), text.end(), [](QChar c) {
        return c.isLetterOrNumber() || c == u'_' || c == u'-' || c == u'.' || c == u':'
            || c.isSurrogate() || c.isMark();
    });
}

} // namespace

QString IdentityFields::text(const ComponentTree &tree, DesignField field)
{
    const FieldRow &row = rowOf(field);
    if (isIdentity(field))
        return identityText(tree, field);
    if (row.isStandard)
        return tree.standardText(XmlTree::root, row.name);
    if (field != DesignField::Author)
        return tree.attribute(tree.design(), row.name);
    const XmlNode foreign = foreignAuthor(tree);
    return foreign != 0 ? tree.xml.text(foreign) : tree.ownText(tree.design(), row.name);
}

Status IdentityFields::setText(ComponentTree &tree, DesignField field, const QString &text)
{
    EditCheck check;
    if (field == DesignField::Name)
        check.isGiven(text, u"name of a design");
    if (const Status refused = check.isCarried({text}).status(); !refused.isOk())
        return refused;
    if (text == IdentityFields::text(tree, field))
        return {};
    const FieldRow &row = rowOf(field);
    if (field == DesignField::Author)
        setAuthor(tree, text);
    else if (isIdentity(field))
        setIdentity(tree, field, text);
    else if (row.isStandard)
        setElement(tree, row.name, text);
    else
        setDesignAttribute(tree, row.name, text);
    return {};
}

void IdentityFields::setDesignAttribute(ComponentTree &tree, QByteArrayView attribute,
                                        const QString &value)
{
    const XmlNode design = value.isEmpty() ? tree.design() : tree.ensureDesign();
    if (design == 0)
        return;
    tree.setAttribute(design, attribute, value);
    tree.prune(design);
}

Status IdentityCheck::check(const ComponentTree &tree, const QString &path)
{
    Status named;
    Status oddities;
    const auto place = [&](XmlNode node) {
        const qsizetype offset = tree.xml.offset(node != 0 ? node : XmlTree::root);
        return path + u':' + QString::number(XmlIndex::lineOf(tree.xml.originalBytes(), offset))
            + u": "_s;
    };
    for (const DesignField field :
         {DesignField::Vendor, DesignField::Library, DesignField::Name, DesignField::Version}) {
        const QByteArrayView name = rowOf(field).name;
        const XmlNode node = tree.standardChild(XmlTree::root, name);
        const QString text = tree.standardText(XmlTree::root, name);
        if (text.isEmpty() && field == DesignField::Name)
            named = Status::malformed(place(node) + u"The component has no name."_s);
        else if (text.isEmpty())
            oddities.addWarning(place(node)
                                + u"The component has no %1."_s.arg(QLatin1StringView(name)));
        else if (isOdd(text))
            oddities.addWarning(
                place(node)
                + u"The %1 \"%2\" holds characters that the standard does not allow there."_s.arg(
                    QLatin1StringView(name), text));
    }
    return named.after(oddities);
}

} // namespace MorvalenCore
