#include "tests/needed.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLibraryInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>

using namespace Qt::Literals::StringLiterals;

// That every text of the window goes through the translation, and that the translations are whole.
class tst_Texts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsAreRecognized_data();
    void textsAreRecognized();
    void everyTextIsMarked();
    void theTranslationHasEveryText();
    void theTranslationIsWhole();
};

namespace {

const QString sourceDir = QStringLiteral(SOURCE_DIR);
const QString german = sourceDir + u"/translations/morvalen_de.ts"_s;

// What has no window writes to a terminal, to logs and for scripts, in English.
const QString windowless[] = {
    u"BatchRun.cpp"_s,
    u"CommandLine.cpp"_s,
    u"main.cpp"_s,
    u"ProgramStart.cpp"_s,
    u"process/"_s,
    u"session/Session.cpp"_s,
    u"session/TemporarySession"_s,
    u"terminal/"_s,
    u"windowlibrary.cpp"_s,
};

// Words that programs read: languages, tools, commands, and names on disk and in settings.
const QHash<QString, QStringList> otherWords = {
    {u"MainWindow.cpp"_s, {u"Morvalen"_s}},
    {u"windowentry.cpp"_s, {u"Morvalen"_s}},
    {u"editor/EditorActions.cpp"_s, {u"Ctrl+Tab; Ctrl+PgDown"_s, u"Ctrl+Shift+Tab; Ctrl+PgUp"_s}},
    {u"editor/Syntax.cpp"_s, {u"*"_s}},
    {u"issues/IssueReader.cpp"_s, {u"In file included from "_s, u"   required from "_s}},
    {u"journal/journaling.cpp"_s, {u"[open [file join [design get wfp] %1] a]"_s}},
    {u"journal/words.cpp"_s, {u"*"_s}},
    {u"keeping/KeptTexts.cpp"_s, {u"Unsaved"_s, u"Backups"_s}},
    {u"places/placepatterns.cpp"_s, {u"*"_s}},
    {u"preferences/FontChoice.cpp"_s, {u"files add rtl/uart.v  # 0O 1lI {}[]"_s}},
    {u"preferences/consolefont.cpp"_s, {u"Courier"_s}},
    {u"window/themes.cpp"_s, {u"Fusion"_s}},
    {u"window/windowlayout.cpp"_s, {u"Window"_s}},
};

struct Message
{
    QString context;
    QString source;
    QStringList forms;
    bool isNumerus = false;
    bool isFinished = true;
};

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool looksLikeText(const QString &literal)
{
    static const QRegularExpression text(
        uR"(&(?!\w+;)[A-Za-z]|^[A-Z][a-z]+[.:!?]?$|[A-Za-z]{2,}[,.:;]? +["%]?[A-Za-z])"_s);
    return text.match(literal).hasMatch();
}

// What the literals say that are written one behind the other.
QString saidBy(const QString &literals)
{
    static const QRegularExpression one(uR"x("((?:\\.|[^"\\])*)")x"_s);
    QString said;
    for (auto found = one.globalMatch(literals); found.hasNext();)
        said += found.next().captured(1);
    return said.replace(u"\\\""_s, u"\""_s);
}

// The string literals of a source that look like texts and that no translation sees.
QStringList unmarked(const QString &source)
{
    static const QRegularExpression literals(
        uR"x((?://|#include)[^\n]*|\d'(?=\d)|'(?:\\.|[^'\\])+'|R"(\w*)\(.*?\)\1")x"
        uR"x(|((?:u8|u)?"(?:\\.|[^"\\])*"(?:_s|_L1)?(?:\s*(?:u8|u)?"(?:\\.|[^"\\])*"(?:_s|_L1)?)*))x"_s,
        QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression mark(
        uR"x(\b(?:tr|QT_TR_NOOP)\(\s*$|\b(?:translate|QT_TRANSLATE_NOOP)\(\s*(?:"\w+",\s*)?$)x"_s);
    QStringList found;
    for (auto match = literals.globalMatch(source); match.hasNext();) {
        const QRegularExpressionMatch literal = match.next();
        const QString said = saidBy(literal.captured(2));
        const QString before = source.first(literal.capturedStart())
                                   .last(qMin<qsizetype>(literal.capturedStart(), 200));
        if (looksLikeText(said) && !mark.match(before).hasMatch())
            found.append(said);
    }
    return found;
}

QList<Message> messagesOf(const QString &path)
{
    QList<Message> messages;
    QXmlStreamReader xml(read(path));
    QString context;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"name")
            context = xml.readElementText();
        else if (xml.name() == u"message")
            messages.append({context, {}, {}, xml.attributes().hasAttribute(u"numerus"_s), true});
        else if (xml.name() == u"source")
            messages.last().source = xml.readElementText();
        else if (xml.name() == u"translation")
            messages.last().isFinished = !xml.attributes().hasAttribute(u"type"_s);
        if (xml.name() == u"numerusform"
            || (xml.name() == u"translation" && !messages.last().isNumerus))
            messages.last().forms.append(xml.readElementText());
    }
    return xml.hasError() ? QList<Message>() : messages;
}

QStringList all(const QString &pattern, const QString &text)
{
    QStringList found;
    for (auto match = QRegularExpression(pattern).globalMatch(text); match.hasNext();)
        found.append(match.next().captured());
    found.sort();
    return found;
}

// What a translation must have as its source does: what is filled in, tags, filters of files, how
// it ends, and whether it has a letter to reach it by.
QStringList fixedParts(const QString &text)
{
    return all(uR"(%L?\w|\$\(\w+\)|<[^>]+>|\(\*[^)]*\)|\t.*$|(\.\.\.|[.:?!])$|^\s|\n)"_s, text)
        + all(u"&(?=[^\\s&])"_s, text);
}

} // namespace

void tst_Texts::textsAreRecognized_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("text-1 words") << uR"(label(u"No file is open"_s))"_s
                                  << QStringList {u"No file is open"_s};
    QTest::newRow("text-2 one word") << uR"(label(u"Close"_s))"_s << QStringList {u"Close"_s};
    QTest::newRow("text-3 a letter to reach it by")
        << uR"(menu(u"&x"_s))"_s << QStringList {u"&x"_s};
    QTest::newRow("text-4 in two lines")
        << u"box(\"Nothing \"\n    \"was lost.\")"_s << QStringList {u"Nothing was lost."_s};
    QTest::newRow("text-5 the second of two")
        << uR"(box(tr("Not Saved"), u"There is no \"%1\"."_s))"_s
        << QStringList {u"There is no \"%1\"."_s};
    QTest::newRow("marked-1") << uR"(label(tr("No file is open")))"_s << QStringList();
    QTest::newRow("marked-2") << uR"(Texts::tr("No file is open", nullptr, n))"_s << QStringList();
    QTest::newRow("marked-3") << uR"({QT_TRANSLATE_NOOP("Menu", "&Undo"), 1})"_s << QStringList();
    QTest::newRow("marked-4") << u"translate(\"Menu\",\n    \"Not Saved\")"_s << QStringList();
    QTest::newRow("other-1 a name") << uR"(setObjectName(u"mainWindow"_s))"_s << QStringList();
    QTest::newRow("other-2 a comment") << uR"(// Says "not now" to it.)"_s << QStringList();
    QTest::newRow("other-3 an include") << uR"(#include "app/Words of it.h")"_s << QStringList();
    QTest::newRow("other-4 a quote") << uR"('"' + name + '"')"_s << QStringList();
    QTest::newRow("other-5 a number") << uR"(1'000; u"key"_s; f('Some words'))"_s << QStringList();
    QTest::newRow("other-7 an entity of HTML") << uR"(replace(u'<', u"&lt;"_s))"_s << QStringList();
    QTest::newRow("other-6 a pattern") << uR"x(R"(Some words)")x"_s << QStringList();
}

void tst_Texts::textsAreRecognized()
{
    QFETCH(const QString, source);
    QTEST(unmarked(source), "texts");
}

void tst_Texts::everyTextIsMarked()
{
    const QDir app(sourceDir + u"/app"_s);
    QDirIterator walk(app.path(), {u"*.h"_s, u"*.cpp"_s}, QDir::Files,
                      QDirIterator::Subdirectories);
    QStringList wrong;
    QHash<QString, QStringList> unused = otherWords;
    while (walk.hasNext()) {
        const QString path = walk.next();
        const QString name = app.relativeFilePath(path);
        if (std::any_of(std::begin(windowless), std::end(windowless),
                        [&](const QString &start) { return name.startsWith(start); }))
            continue;
        for (const QString &text : unmarked(QString::fromUtf8(read(path)))) {
            const QString &known = otherWords.value(name) == QStringList {u"*"_s} ? u"*"_s : text;
            if (!otherWords.value(name).contains(known))
                wrong.append(name + u": "_s + text);
            unused[name].removeAll(known);
        }
    }
    QCOMPARE(wrong.join(u'\n'), QString());
    for (auto it = unused.cbegin(); it != unused.cend(); ++it)
        QVERIFY2(it->isEmpty(), qPrintable(it.key() + u" has no more "_s + it->join(u", "_s)));
}

void tst_Texts::theTranslationHasEveryText()
{
    NEEDS(QFile::exists(QLibraryInfo::path(QLibraryInfo::BinariesPath) + u"/lupdate"_s), "lupdate",
          "qt6-l10n-tools");
    const QTemporaryDir folder;
    const QString copy = folder.filePath(u"morvalen_de.ts"_s);
    QVERIFY(QFile::copy(german, copy));
    QProcess update;
    update.start(sourceDir + u"/scripts/translations"_s, {copy});
    QVERIFY(update.waitForFinished());
    // It names texts that have no context.
    QCOMPARE(QString::fromUtf8(update.readAllStandardError()), QString());
    QCOMPARE(update.exitCode(), 0);
    // Else run scripts/translations and translate what it has added.
    QCOMPARE(QString::fromUtf8(read(copy)), QString::fromUtf8(read(german)));
}

void tst_Texts::theTranslationIsWhole()
{
    const QList<Message> messages = messagesOf(german);
    QVERIFY(messages.size() > 100);
    for (const Message &message : messages) {
        const QByteArray name = (message.context + u": "_s + message.source).toUtf8();
        QVERIFY2(message.isFinished, name);
        QCOMPARE(message.forms.size(), message.isNumerus ? 2 : 1);
        for (const QString &form : message.forms) {
            QVERIFY2(!form.isEmpty(), name);
            QStringList wanted = fixedParts(message.source);
            // One may be said in a word.
            if (message.isNumerus && !form.contains(u"%n"_s) && form == message.forms.first())
                wanted.removeOne(u"%n"_s);
            QVERIFY2(fixedParts(form) == wanted, name);
        }
    }
}

QTEST_GUILESS_MAIN(tst_Texts)
#include "tst_Texts.moc"
