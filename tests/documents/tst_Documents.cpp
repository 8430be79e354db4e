// Links, paths and commands in all documents.

#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_Documents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linksLeadSomewhere_data() { addDocuments(); }
    void linksLeadSomewhere();
    void pathsAreThere_data() { addDocuments(); }
    void pathsAreThere();
    void targetsOfMakeAreThere_data() { addDocuments(); }
    void targetsOfMakeAreThere();
    void optionsOfTheProgramAreThere_data() { addDocuments(); }
    void optionsOfTheProgramAreThere();
    void scriptsAreComplete_data() { addDocuments(); }
    void scriptsAreComplete();
    void everyDocumentCanBeReached();

private:
    static void addDocuments();
};

namespace {

const QString top = QStringLiteral(SOURCE_DIR "/");

QStringList documents()
{
    QStringList found;
    for (const QString &name : QDir(top).entryList({u"*.md"_s}, QDir::Files))
        found.append(name);
    for (const QString &folder : {u"docs"_s, u"examples"_s}) {
        QDirIterator files(top + folder, {u"*.md"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext())
            found.append(files.next().sliced(top.size()));
    }
    found.sort();
    return found;
}

QString textOf(const QString &document) { return QString::fromUtf8(Program::read(top + document)); }

QStringList captures(const QString &text, const QString &pattern)
{
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    QStringList all;
    for (const QRegularExpressionMatch &match : expression.globalMatch(text))
        all.append(match.captured(1));
    return all;
}

// The names that headings have in links.
QStringList anchorsOf(const QString &text)
{
    static const QRegularExpression mark(u"[^\\w -]"_s,
                                         QRegularExpression::UseUnicodePropertiesOption);
    QStringList anchors;
    for (const QString &heading : captures(text, u"^#+ (.*)$"_s))
        anchors.append(heading.toLower().remove(mark).replace(u' ', u'-'));
    return anchors;
}

// A link as a path below the top, without its anchor.
QString target(const QString &document, const QString &link)
{
    const QString path = link.section(u'#', 0, 0);
    if (path.isEmpty())
        return document;
    return QDir::cleanPath(QFileInfo(document).path() + u'/' + path);
}

QStringList linksOf(const QString &document)
{
    QStringList links = captures(textOf(document), u"\\]\\(([^)\\s]+)\\)"_s);
    links.removeIf([](const QString &link) { return link.contains(u"://"_s); });
    return links;
}

// What stands as code: in backticks, in indented lines, and in blocks.
QString codeOf(const QString &text)
{
    QString code = captures(text, u"`([^`\\n]+)`"_s).join(u'\n') + u'\n'
        + captures(text, u"^    (.*)$"_s).join(u'\n') + u'\n';
    const QStringList parts = text.split(u"\n```"_s);
    for (qsizetype i = 1; i < parts.size(); i += 2)
        code += parts.at(i).section(u'\n', 1) + u'\n';
    return code;
}

} // namespace

void tst_Documents::addDocuments()
{
    QTest::addColumn<QString>("document");
    for (const QString &document : documents())
        QTest::newRow(qPrintable(document)) << document;
}

void tst_Documents::linksLeadSomewhere()
{
    QFETCH(const QString, document);
    QStringList broken;
    for (const QString &link : linksOf(document)) {
        const QString to = target(document, link);
        const QString anchor = link.section(u'#', 1);
        if (!QFileInfo::exists(top + to)
            || (!anchor.isEmpty() && !anchorsOf(textOf(to)).contains(anchor)))
            broken.append(link);
    }
    QCOMPARE(broken.join(u'\n'), QString());
}

void tst_Documents::pathsAreThere()
{
    QFETCH(const QString, document);
    QStringList missing;
    const QString folders =
        u"app|bench|cmake|commands|console|debian|desktop|docs|ensemble|examples|host|interp|"
        "scripting|scripts|tests"_s;
    for (const QString &path :
         captures(textOf(document), u"`((?:"_s + folders + u")/[\\w./-]*)[` ]"_s)) {
        // A name in capitals stands for any.
        static const QRegularExpression placeholder(u"[A-Z]{3,}"_s);
        if (!path.contains(placeholder) && !QFileInfo::exists(top + path)
            && !QFileInfo::exists(QFileInfo(top + document).path() + u'/' + path))
            missing.append(path);
    }
    QCOMPARE(missing.join(u'\n'), QString());
}

void tst_Documents::targetsOfMakeAreThere()
{
    QFETCH(const QString, document);
    const QString makefile = textOf(u"Makefile"_s);
    QStringList missing;
    for (const QString &word : captures(codeOf(textOf(document)), u"^make ([a-z]+)\\b"_s)) {
        if (!captures(makefile, u"^("_s + word + u"):"_s).contains(word))
            missing.append(word);
    }
    QCOMPARE(missing.join(u'\n'), QString());
}

void tst_Documents::optionsOfTheProgramAreThere()
{
    QFETCH(const QString, document);
    static const QByteArray help = Program().runBare({u"--help"_s}).out;
    QVERIFY(help.contains("--batch"));
    QStringList missing;
    for (const QString &words : captures(codeOf(textOf(document)), u"^morvalen (-.*)$"_s)) {
        // All words behind a script are its own.
        const QString own = words.section(QRegularExpression(u"--batch \\S+"_s), 0, 0);
        for (const QString &option : captures(u' ' + own, u" (-{1,2}[a-z][a-z-]*)"_s)) {
            if (!help.contains(option.toUtf8()))
                missing.append(option);
        }
    }
    QCOMPARE(missing.join(u'\n'), QString());
}

void tst_Documents::scriptsAreComplete()
{
    QFETCH(const QString, document);
    static const QRegularExpression block(u"^```tcl\\n(.*?)^```$"_s,
                                          QRegularExpression::MultilineOption
                                              | QRegularExpression::DotMatchesEverythingOption);
    Program program;
    program.session = program.path(u"session"_s);
    for (const QRegularExpressionMatch &match : block.globalMatch(textOf(document))) {
        const Ended ended = program.run(
            {u"--batch"_s, program.write(u"look.tcl"_s, "puts [info complete [read stdin]]\n")},
            match.captured(1).toUtf8());
        QCOMPARE(ended, (Ended {0, "1\n", ""}));
    }
}

// By links, from the front page on.
void tst_Documents::everyDocumentCanBeReached()
{
    QStringList reached {u"README.md"_s};
    for (qsizetype i = 0; i < reached.size(); ++i) {
        for (const QString &link : linksOf(reached.at(i))) {
            QString to = target(reached.at(i), link);
            if (QFileInfo(top + to).isDir())
                to += u"/README.md"_s;
            if (to.endsWith(u".md"_s) && !reached.contains(to))
                reached.append(to);
        }
    }
    QStringList lost = documents();
    lost.removeIf([&](const QString &document) { return reached.contains(document); });
    lost.removeOne(u"CHANGELOG.md"_s);
    lost.removeOne(u"examples/uart/doc/uart.md"_s); // belongs to a design
    QCOMPARE(lost.join(u'\n'), QString());
}

GUILESS_TEST_CLASS(tst_Documents)
#include "tst_Documents.moc"
