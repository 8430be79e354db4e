#include "component/standardname.h"

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

struct Range
{
    char16_t first;
    char16_t last;
};

// Letters beyond ASCII that XML has had in names since its first edition, which is what validators
// go by: Latin, Greek, Cyrillic, Japanese, Chinese and Korean ones. It has others, which are not
// worth the space.
constexpr std::array letters {
    Range {0x00c0, 0x00d6}, Range {0x00d8, 0x00f6}, Range {0x00f8, 0x0131}, Range {0x0134, 0x013e},
    Range {0x0141, 0x0148}, Range {0x014a, 0x017e}, Range {0x0388, 0x038a}, Range {0x038e, 0x03a1},
    Range {0x03a3, 0x03ce}, Range {0x0401, 0x040c}, Range {0x040e, 0x044f}, Range {0x0451, 0x045c},
    Range {0x3041, 0x3094}, Range {0x30a1, 0x30fa}, Range {0x4e00, 0x9fa5}, Range {0xac00, 0xd7a3}};

bool mayBegin(QChar character)
{
    const char16_t code = character.unicode();
    if (code < 0x80)
        return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || code == '_'
            || code == ':';
    return std::any_of(letters.begin(), letters.end(), [code](const Range &range) {
        return code >= range.first && code <= range.last;
    });
}

bool mayFollow(QChar character)
{
    const char16_t code = character.unicode();
    return mayBegin(character) || (code >= '0' && code <= '9') || code == '-' || code == '.';
}

} // namespace

QString standardName(const QString &text, NameForm form)
{
    QString name;
    for (const QChar character : text)
        name += mayFollow(character) ? character : u'_';
    if (name.isEmpty() || (form == NameForm::Name && !mayBegin(name.front())))
        name.prepend(u'_');
    return name;
}

} // namespace MorvalenCore
