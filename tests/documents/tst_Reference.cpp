// The pages of the commands that "make docs" makes of their tables.

#include "commands/commandmanuals.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_Reference : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyCommandHasAPage();
    void everyCallIsOnItsPage();
    void everyLinkLeadsToAPage();
    void aFolderIsWanted();

private:
    QStringList run(const QStringList &words) const;
    QString read(const QString &name) const;
    QString textOf(const QString &name) const;

    QTemporaryDir folder;
};

// The status, and both outputs.
QStringList tst_Reference::run(const QStringList &words) const
{
    QProcess pages;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_RUNTIME_DIR"_s, folder.path());
    pages.setProcessEnvironment(environment);
    pages.start(QStringLiteral(REFERENCE_PAGES), words);
    if (!pages.waitForFinished(patient()))
        return {u"no end"_s};
    return {QString::number(pages.exitCode()), QString::fromUtf8(pages.readAllStandardOutput()),
            QString::fromUtf8(pages.readAllStandardError())};
}

QString tst_Reference::read(const QString &name) const
{
    QFile file(folder.filePath(u"reference/"_s + name + u".html"_s));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// What a reader sees.
QString tst_Reference::textOf(const QString &name) const
{
    static const QRegularExpression tag(u"<head>.*</head>|<[^>]*>"_s,
                                        QRegularExpression::DotMatchesEverythingOption);
    QString text = read(name).remove(tag);
    text.replace(u"&lt;"_s, u"<"_s).replace(u"&gt;"_s, u">"_s).replace(u"&quot;"_s, u"\""_s);
    return text.replace(u"&amp;"_s, u"&"_s).simplified();
}

void tst_Reference::initTestCase()
{
    const QString pages = folder.filePath(u"reference"_s);
    QCOMPARE(run({pages}), (QStringList {u"0"_s, pages + u"/index.html\n"_s, u""_s}));
}

void tst_Reference::everyCommandHasAPage()
{
    QStringList expected {u"index.html"_s};
    for (const commands::CommandManual &manual : commands::commandManuals())
        expected.append(manual.word + u".html"_s);
    // The documents of the ensemble are compared with its tables.
    const QDir ensemble(QStringLiteral(SOURCE_DIR "/docs/ensemble"));
    for (const QString &name : ensemble.entryList({u"*.md"_s}))
        expected.append(QFileInfo(name).completeBaseName() + u".html"_s);
    expected.sort();
    QCOMPARE(QDir(folder.filePath(u"reference"_s)).entryList(QDir::Files, QDir::Name).join(u'\n'),
             expected.join(u'\n'));
}

void tst_Reference::everyCallIsOnItsPage()
{
    const QString index = textOf(u"index"_s);
    for (const commands::CommandManual &manual : commands::commandManuals()) {
        QVERIFY2(index.contains(manual.word + u' ' + manual.help), qPrintable(manual.word));
        const QString page = textOf(manual.word);
        QVERIFY2(page.startsWith(manual.word + u' ' + manual.help), qPrintable(page));
        for (const commands::ManualCall &call : manual.calls) {
            const QString row = (call.call + u' ' + call.does).simplified();
            QVERIFY2(page.contains(row), qPrintable(row + u" in "_s + page));
        }
    }
}

void tst_Reference::everyLinkLeadsToAPage()
{
    static const QRegularExpression link(u"href=\"([^\"]*)\""_s);
    const QDir pages(folder.filePath(u"reference"_s));
    int links = 0;
    for (const QString &name : pages.entryList(QDir::Files)) {
        for (const QRegularExpressionMatch &match :
             link.globalMatch(read(QFileInfo(name).completeBaseName()))) {
            ++links;
            QVERIFY2(pages.exists(match.captured(1)),
                     qPrintable(name + u": "_s + match.captured(1)));
        }
    }
    QVERIFY(links > 30);
}

void tst_Reference::aFolderIsWanted()
{
    const QStringList usage {u"2"_s, u""_s, u"usage: reference-pages FOLDER\n"_s};
    QCOMPARE(run({}), usage);
    QCOMPARE(run({u"a"_s, u"b"_s}), usage);
    QFile file(folder.filePath(u"file"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(run({file.fileName()}).first(), u"1"_s);
}

GUILESS_TEST_CLASS(tst_Reference)
#include "tst_Reference.moc"
