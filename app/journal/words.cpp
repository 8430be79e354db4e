#include "app/journal/words.h"

#include <MorvalenCore/DesignManager.h>

#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesApplication.h>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::ProjectManagement::ProjectManager;

namespace journal {

namespace {

bool isPlain(QChar c)
{
    return (c.unicode() < 0x80 && c.isLetterOrNumber()) || u"_./:,+@%=-"_s.contains(c);
}

// What braces hold as it is.
bool fitsBraces(const QString &text)
{
    int depth = 0;
    for (const QChar c : text) {
        if (c.unicode() < 0x20 || c.unicode() == 0x7F || c == u'\\')
            return false;
        depth += c == u'{' ? 1 : c == u'}' ? -1 : 0;
        if (depth < 0)
            return false;
    }
    return depth == 0;
}

// No character that means anything to Tcl is left, nor a colon, before which the console would
// change a backslash.
QString escaped(const QString &text)
{
    QString result;
    for (const QChar c : text) {
        if (isPlain(c) && c != u':')
            result += c;
        else if (c.unicode() < 0x80)
            result += u"\\u%1"_s.arg(ushort(c.unicode()), 4, 16, QChar(u'0'));
        else
            result += c;
    }
    return result;
}

} // namespace

QString quoted(const QString &text)
{
    const bool plain =
        !text.isEmpty() && text != u"--"_s && std::all_of(text.begin(), text.end(), isPlain);
    if (plain)
        return text;
    return fitsBraces(text) ? u'{' + text + u'}' : escaped(text);
}

QString command(const Words &words)
{
    QStringList texts;
    for (const Word &word : words)
        texts.append(word.isScript ? word.text : quoted(word.text));
    return texts.join(u' ');
}

QString list(const QStringList &texts)
{
    QStringList all;
    for (const QString &text : texts)
        all.append(quoted(text));
    return all.join(u' ');
}

Word path(const QString &file)
{
    const QString designs = DesignManager::instance()->path(DesignManager::DesignsPath);
    const QString projects = ProjectManager::instance()->customProjectsPath(
        QtilitiesApplication::applicationSessionPath() + u"/Projects"_s);
    for (const auto &[folder, command] : {std::pair {designs, u"designs designs_path"_s},
                                          std::pair {projects, u"project projects_path"_s}}) {
        if (file.startsWith(folder + u'/'))
            return Word::script(
                u"[file join [%1] %2]"_s.arg(command, quoted(file.sliced(folder.size() + 1))));
    }
    return file;
}

QString itemPath(const IDesign &design, const QString &actualPath)
{
    const QString folder = design.workingFolderPath() + u'/';
    return actualPath.startsWith(folder) ? actualPath.sliced(folder.size()) : actualPath;
}

} // namespace journal
