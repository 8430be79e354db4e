// reference-pages FOLDER: writes the manual of the commands into the folder, a page for each as the
// program's own manual shows it. What commands are called and how comes from their tables.

#include "app/help/manualpages.h"
#include "ensemble/ensemble.h"
#include "interp/commandsManager.h"
#include "interp/QtNotifier.h"
#include "scripting/TclScriptManager.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QDir>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QTextDocument>

#include <cstdio>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;

namespace {

QString fileOf(const QString &name)
{
    return (name == manualpages::contents ? u"index"_s : name) + u".html"_s;
}

QByteArray htmlOf(const QString &name)
{
    static const QRegularExpression link(uR"re(href="(?:[^":]*/)?([^"/:]+)\.md")re"_s);
    QTextDocument document;
    document.setMarkdown(manualpages::page(name));
    document.setMetaInformation(QTextDocument::DocumentTitle,
                                name == manualpages::contents ? u"Commands"_s : name);
    QString html = document.toHtml();
    html.replace(u"<table border=\"0\""_s, u"<table border=\"1\" cellpadding=\"4\""_s);
    html.replace(link, u"href=\"\\1.html\""_s);
    html.replace(u"href=\"%1.html\""_s.arg(manualpages::contents), u"href=\"index.html\""_s);
    return html.toUtf8();
}

bool write(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return true;
    std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(file.errorString()));
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QtilitiesApplication application(argc, argv);
    const QStringList words = QtilitiesApplication::arguments();
    if (words.size() != 2) {
        std::fputs("usage: reference-pages FOLDER\n", stderr);
        return 2;
    }
    const QTemporaryDir session;
    QtilitiesApplication::setApplicationSessionPath(session.path());
    Qtk_InitNotifier(&application);
    ensemble::create(commandsManager::getInstance(nullptr)->interp, QDir::currentPath());
    TclScripting::TclScriptManager manager(nullptr);
    manager.initializeMode();

    const QDir folder(words[1]);
    bool isWritten = folder.mkpath(u"."_s);
    for (const QString &name : manualpages::names())
        isWritten = isWritten && write(folder.filePath(fileOf(name)), htmlOf(name));
    if (isWritten)
        std::puts(qPrintable(folder.filePath(u"index.html"_s)));
    return isWritten ? 0 : 1;
}
