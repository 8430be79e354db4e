#include "app/editor/lineends.h"

#include <QCoreApplication>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace lineends {

namespace {

// Whatever begins a new block in a document. The rare ones are here so that they are not lost.
struct End
{
    QStringView text;
    const char *name;
};

constexpr char16_t paragraphSeparator[] = u"\u2029";
constexpr char16_t frameBegin[] = u"\uFDD0";
constexpr char16_t frameEnd[] = u"\uFDD1";

constexpr std::array ends {
    End {u"\n", "LF"},          End {u"\r\n", "CRLF"},
    End {u"\r", "CR"},          End {paragraphSeparator, "U+2029"},
    End {frameBegin, "U+FDD0"}, End {frameEnd, "U+FDD1"},
};

constexpr int endProperty = QTextFormat::UserProperty + 1;

// The end at a place of the text; negative when the line goes on there.
int endAt(QStringView rest)
{
    static constexpr QStringView first(u"\n\r\u2029\uFDD0\uFDD1");
    if (!first.contains(rest.front()))
        return -1;
    if (rest.startsWith(u"\r\n"))
        return 1;
    const auto is = [rest](const End &end) { return rest.startsWith(end.text); };
    return int(std::find_if(ends.begin(), ends.end(), is) - ends.begin());
}

} // namespace

Lines split(const QString &text)
{
    Lines lines;
    lines.text.reserve(text.size());
    std::array<qsizetype, ends.size()> counts {};
    qsizetype start = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const int end = endAt(QStringView(text).sliced(at));
        if (end < 0)
            continue;
        lines.text += QStringView(text).sliced(start, at - start);
        lines.text += u'\n';
        lines.each.append(quint8(end));
        ++counts[size_t(end)];
        at += ends[size_t(end)].text.size() - 1;
        start = at + 1;
    }
    lines.text += QStringView(text).sliced(start);
    const auto most = std::max_element(counts.begin(), counts.end());
    lines.usual = int(most - counts.begin());
    if (*most == lines.each.size())
        lines.each.clear();
    return lines;
}

void mark(QTextDocument *document, const Lines &lines, bool withLastEdit)
{
    QTextCursor cursor(document);
    if (withLastEdit)
        cursor.joinPreviousEditBlock();
    else
        cursor.beginEditBlock();
    QTextBlock block = document->firstBlock();
    for (qsizetype line = 0; block.isValid(); block = block.next(), ++line) {
        const int end = line < lines.each.size() ? lines.each[line] : lines.usual;
        QTextBlockFormat format = block.blockFormat();
        if (end == lines.usual && !format.hasProperty(endProperty))
            continue;
        format.setProperty(endProperty, end);
        cursor.setPosition(block.position());
        cursor.setBlockFormat(format);
    }
    cursor.endEditBlock();
}

QString join(const QTextDocument &document, int usual)
{
    QString text;
    text.reserve(document.characterCount());
    for (QTextBlock block = document.firstBlock(); block.isValid(); block = block.next()) {
        text += block.text();
        if (!block.next().isValid())
            break;
        const QTextBlockFormat format = block.blockFormat();
        const int end = format.hasProperty(endProperty) ? format.intProperty(endProperty) : usual;
        text += ends[size_t(end)].text;
    }
    return text;
}

QString name(const Lines &lines)
{
    const QString usual = QString::fromLatin1(ends[size_t(lines.usual)].name);
    if (lines.each.isEmpty())
        return usual;
    return QCoreApplication::translate("lineends", "%1, mixed").arg(usual);
}

} // namespace lineends
