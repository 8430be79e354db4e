#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"
#include "tests/app/editor/files.h"
#include "tests/TestClass.h"

#include <QLabel>
#include <QTemporaryDir>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

using namespace Qt::Literals::StringLiterals;

// How files become text and text becomes files again: nothing that nobody edited changes.
class tst_TextForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void bytesAreKept_data();
    void bytesAreKept();
    void editedLinesKeepTheirNeighbours_data();
    void editedLinesKeepTheirNeighbours();
    void latin1HoldsLatin1Only();

    void whatIsNoTextIsRefused_data();
    void whatIsNoTextIsRefused();
    void whatIsNoFileIsRefused_data();
    void whatIsNoFileIsRefused();
    void aFileOfTheKernelIsRead();
    void largeFilesAreRefused();
    void longLinesAreRefused();

private:
    std::unique_ptr<TextPage> open(const QByteArray &bytes);

    std::unique_ptr<QTemporaryDir> folder;
    QString path;
    QString error;
};

void tst_TextForm::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
    path = folder->filePath(u"top.v"_s);
    error.clear();
}

std::unique_ptr<TextPage> tst_TextForm::open(const QByteArray &bytes)
{
    if (!files::write(path, bytes))
        return nullptr;
    return std::unique_ptr<TextPage>(TextPage::open(path).valueOr(nullptr, &error));
}

void tst_TextForm::bytesAreKept_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("form");
    const auto row = [](const char *name, const QByteArray &bytes, const char *form) {
        QTest::newRow(name) << bytes << QString::fromLatin1(form);
    };
    QByteArray allBytes;
    for (int code = 1; code < 256; ++code)
        allBytes += QByteArray("some text before ") + char(code) + '\n';

    row("ends-1 an empty file", "", "UTF-8, LF");
    row("ends-2 line feeds", "a\nb\n", "UTF-8, LF");
    row("ends-3 no final line feed", "a\nb", "UTF-8, LF");
    row("ends-4 carriage returns", "a\r\nb\r\n", "UTF-8, CRLF");
    row("ends-5 carriage returns, none at the end", "a\r\nb", "UTF-8, CRLF");
    row("ends-6 mixed", "a\r\nb\nc\r\nd\n\n\r\n", "UTF-8, LF, mixed");
    row("ends-7 old carriage returns", "a\rb\r", "UTF-8, CR");
    row("ends-8 all kinds", "a\r\r\n\n\rb\n\r", "UTF-8, CR, mixed");
    row("ends-9 separators of Unicode", "a\u2029b\u2028c\n", "UTF-8, LF, mixed");
    row("ends-10 frames of documents", "a\uFDD0b\uFDD1c\n", "UTF-8, LF, mixed");
    row("ends-11 only a line feed", "\n", "UTF-8, LF");
    row("code-1 beyond ASCII", "gr\u00FC\u00DFe \u20AC \U0001F600\n", "UTF-8, LF");
    row("code-2 a mark", "\uFEFFa\n", "UTF-8 with BOM, LF");
    row("code-3 two marks", "\uFEFF\uFEFFa\n", "UTF-8 with BOM, LF");
    row("code-4 only a mark", "\uFEFF", "UTF-8 with BOM, LF");
    row("code-5 a mark within", "a\uFEFFb\n", "UTF-8, LF");
    row("code-6 no-break spaces and objects", "a\u00A0b\uFFFCc\uFFFD\uFFFE\uFFFF\n", "UTF-8, LF");
    row("code-7 not UTF-8",
        "gr\xFC\xDF"
        "e\n",
        "Latin-1, LF");
    row("code-8 a mark, then not UTF-8", "\xEF\xBB\xBFgr\xFC\n", "Latin-1, LF");
    row("code-9 too long a form", "a\xC0\xAF\n", "Latin-1, LF");
    row("code-10 half a pair", "a\xED\xA0\x80\n", "Latin-1, LF");
    row("code-11 cut off", "a\xE2\x82", "Latin-1, LF");
    row("code-12 every byte but zero", allBytes, "Latin-1, LF, mixed");
    row("code-14 UTF-16",
        QByteArray("\xFF\xFE"
                   "a\0\n\0\xAC\x20",
                   8),
        "UTF-16 LE, LF");
    row("code-15 UTF-16 the other way", QByteArray("\xFE\xFF\0a\0\r\0\n\x20\xAC", 10),
        "UTF-16 BE, CRLF");
    row("code-16 only a mark of UTF-16", "\xFF\xFE", "UTF-16 LE, LF");
    row("code-17 two marks of UTF-16", "\xFF\xFE\xFF\xFE", "UTF-16 LE, LF");
    row("code-18 half a pair in UTF-16",
        QByteArray("\xFF\xFE\x00\xD8"
                   "a\0",
                   6),
        "UTF-16 LE, LF");
    row("code-13 blanks at the ends", "  a \t\n\t\n ", "UTF-8, LF");
}

void tst_TextForm::bytesAreKept()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, form);
    const std::unique_ptr<TextPage> page = open(bytes);
    QVERIFY2(page, qPrintable(error));
    QVERIFY(!page->isModified());
    const auto labels = page->findChildren<QLabel *>();
    QVERIFY(std::any_of(labels.begin(), labels.end(),
                        [&](const QLabel *label) { return label->text() == form; }));
    const QString copy = folder->filePath(u"copy"_s);
    QVERIFY(page->saveCopy(copy).toErrorText(&error));
    QCOMPARE(files::read(copy), bytes);

    // The same when all was deleted, and that undone.
    QTest::keyClick(page->textEdit(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(page->textEdit(), Qt::Key_Delete);
    QVERIFY(page->save().toErrorText(&error));
    QTest::keyClick(page->textEdit(), Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(page->save().toErrorText(&error));
    QCOMPARE(files::read(path), bytes);

    // And when something was typed and taken back.
    QTest::keyClick(page->textEdit(), Qt::Key_X);
    QVERIFY(page->isModified());
    QTest::keyClick(page->textEdit(), Qt::Key_Backspace);
    QVERIFY(page->save().toErrorText(&error));
    QCOMPARE(files::read(path), bytes);
}

void tst_TextForm::editedLinesKeepTheirNeighbours_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("line");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("new-1 a line in a file of CRLF")
        << QByteArray("a\r\nb\r\n") << 1 << QByteArray("ax\r\ny\r\nb\r\n");
    QTest::newRow("new-2 behind a line feed among CRLF")
        << QByteArray("a\r\nb\nc\r\n") << 2 << QByteArray("a\r\nbx\ny\nc\r\n");
    QTest::newRow("new-3 behind CRLF among line feeds")
        << QByteArray("a\nb\r\nc\nd\n") << 2 << QByteArray("a\nbx\r\ny\r\nc\nd\n");
    QTest::newRow("new-4 in the last line, which has no end")
        << QByteArray("a\r\nb\r\nc") << 3 << QByteArray("a\r\nb\r\ncx\r\ny");
}

void tst_TextForm::editedLinesKeepTheirNeighbours()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const int, line);
    QFETCH(const QByteArray, after);
    const std::unique_ptr<TextPage> page = open(bytes);
    QVERIFY2(page, qPrintable(error));
    page->textEdit()->goToLine(line);
    QTest::keyClick(page->textEdit(), Qt::Key_End);
    QTest::keyClick(page->textEdit(), Qt::Key_X);
    QTest::keyClick(page->textEdit(), Qt::Key_Return);
    QTest::keyClick(page->textEdit(), Qt::Key_Y);
    QVERIFY(page->save().toErrorText(&error));
    QCOMPARE(files::read(path), after);
}

void tst_TextForm::latin1HoldsLatin1Only()
{
    const QByteArray bytes("a\ngr\xFC\n");
    const std::unique_ptr<TextPage> page = open(bytes);
    QVERIFY2(page, qPrintable(error));
    page->textEdit()->goToLine(2);
    QTest::keyClick(page->textEdit(), Qt::Key_End);
    page->textEdit()->insertPlainText(u"\u20AC"_s);
    QVERIFY(!page->save().toErrorText(&error));
    QCOMPARE(error,
             u"Cannot write \"%1\": line 2 holds \"\u20AC\", and the file is Latin-1, since it was "
             "not valid UTF-8"_s.arg(path));
    QVERIFY(page->isModified());
    QCOMPARE(files::read(path), bytes);
    QTest::keyClick(page->textEdit(), Qt::Key_Backspace);
    page->textEdit()->insertPlainText(u"\u00DF"_s);
    QVERIFY(page->save().toErrorText(&error));
    QCOMPARE(files::read(path), QByteArray("a\ngr\xFC\xDF\n"));
}

void tst_TextForm::whatIsNoTextIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const QString zero = u"it is not text, since it holds a zero byte"_s;
    const QString control = u"it is not text, since it holds too many control characters"_s;
    QTest::newRow("binary-1 a zero byte") << QByteArray("abc\0def", 7) << zero;
    QTest::newRow("binary-2 a zero byte at the end")
        << QByteArray(100'000, 'a') + QByteArray(1, '\0') << zero;
    QTest::newRow("binary-3 UTF-16 without a mark") << QByteArray("a\0b\0", 4) << zero;
    QTest::newRow("binary-4 control characters") << QByteArray("abc\x01\x02\x03\n") << control;
    QTest::newRow("binary-5 one in twenty") << QByteArray("\x01 2345678901234567890") << QString();
    QTest::newRow("binary-6 a little more") << QByteArray("\x01 23456789012345678") << control;
    QTest::newRow("binary-8 half a unit of UTF-16") << QByteArray("\xFF\xFE"
                                                                  "a\0b",
                                                                  5)
                                                    << zero;
    QTest::newRow("binary-9 a zero in UTF-16") << QByteArray("\xFF\xFE"
                                                             "a\0\0\0",
                                                             6)
                                               << zero;
    QTest::newRow("binary-10 control characters in UTF-16")
        << QByteArray("\xFE\xFF\0a\0\x01", 6) << control;
    QTest::newRow("binary-7 controls of text") << QByteArray("\t\n\v\f\r\x1B\x1A") << QString();
}

void tst_TextForm::whatIsNoTextIsRefused()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, reason);
    const std::unique_ptr<TextPage> page = open(bytes);
    QCOMPARE(page != nullptr, reason.isEmpty());
    if (!reason.isEmpty())
        QCOMPARE(error, u"Cannot open \"%1\": %2"_s.arg(path, reason));
    QCOMPARE(files::read(path), bytes);
}

void tst_TextForm::whatIsNoFileIsRefused_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("reason");
    QTest::newRow("kind-1 nothing") << u"nothing"_s << u"No such file or directory"_s;
    QTest::newRow("kind-2 a folder") << u"folder"_s << u"it is a folder"_s;
    QTest::newRow("kind-3 a pipe that nobody writes to")
        << u"pipe"_s << u"it is a device or a pipe"_s;
    QTest::newRow("kind-4 a device") << u"device"_s << u"it is a device or a pipe"_s;
    QTest::newRow("kind-5 a socket") << u"socket"_s << u"it is a device or a pipe"_s;
    QTest::newRow("kind-6 a link to nothing") << u"link"_s << u"No such file or directory"_s;
    QTest::newRow("kind-7 a file below a file") << u"below"_s << u"Not a directory"_s;
}

void tst_TextForm::whatIsNoFileIsRefused()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, reason);
    const QByteArray name = QFile::encodeName(path);
    if (kind == u"folder"_s) {
        QVERIFY(QDir().mkdir(path));
    } else if (kind == u"pipe"_s) {
        QCOMPARE(::mkfifo(name.constData(), 0600), 0);
    } else if (kind == u"device"_s) {
        path = u"/dev/zero"_s;
    } else if (kind == u"socket"_s) {
        const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, name.constData(), sizeof address.sun_path);
        QCOMPARE(::bind(descriptor, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
        ::close(descriptor);
    } else if (kind == u"link"_s) {
        QVERIFY(QFile::link(u"missing"_s, path));
    } else if (kind == u"below"_s) {
        QVERIFY(files::write(path, "x"));
        path += u"/x.v"_s;
    }
    const std::unique_ptr<TextPage> page(TextPage::open(path).valueOr(nullptr, &error));
    QVERIFY(!page);
    QCOMPARE(error, u"Cannot open \"%1\": %2"_s.arg(path, reason));
}

// It says that it has no bytes.
void tst_TextForm::aFileOfTheKernelIsRead()
{
    path = u"/proc/self/limits"_s;
    const std::unique_ptr<TextPage> page(TextPage::open(path).valueOr(nullptr, &error));
    QVERIFY2(page, qPrintable(error));
    QVERIFY(page->textEdit()->toPlainText().startsWith(u"Limit"_s));
}

void tst_TextForm::largeFilesAreRefused()
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(TextFile::sizeLimit + 1));
    QVERIFY(!TextPage::open(path).valueOr(nullptr, &error));
    QCOMPARE(error, u"Cannot open \"%1\": it is larger than 32 MiB"_s.arg(path));
}

void tst_TextForm::longLinesAreRefused()
{
    const QByteArray longest(TextFile::lineLimit, 'x');
    QVERIFY(open("a\n" + longest + "\n" + longest));
    QVERIFY(!open("a\n" + longest + "x\nb"));
    QCOMPARE(error,
             u"Cannot open \"%1\": it has a line of more than 250,000 characters"_s.arg(path));
}

TEST_CLASS(tst_TextForm)
#include "tst_TextForm.moc"
