#include "tests/TestClass.h"

#include <Qtilities/FileLoggerEngine.h>
#include <Qtilities/Logger.h>
#include <Qtilities/StandardErrorEngine.h>

#include <QDir>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTest>
#include <QThread>

#include <csignal>
#include <fcntl.h>
#include <memory>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::Logging::FileLoggerEngine;
using Qtilities::Logging::Logger;
using Qtilities::Logging::LoggerEngine;
using Qtilities::Logging::StandardErrorEngine;

namespace {

// Keeps what it gets as "NAME TYPE text", with an exclamation mark for priority messages.
class JournalEngine : public LoggerEngine
{
public:
    JournalEngine(const QString &name, QStringList *entries) : LoggerEngine(name), journal(entries)
    {
    }

    void logMessage(int type, const QString &text) override
    {
        journal->append(u"%1 %2 %3"_s.arg(name()).arg(type).arg(text));
        if (reaction)
            reaction();
    }

    void logPriorityMessage(int type, const QString &text) override
    {
        journal->append(u"%1 %2! %3"_s.arg(name()).arg(type).arg(text));
    }

    std::function<void()> reaction;

private:
    QStringList *journal;
};

// What the process writes to standard error while an object of this class lives.
class StandardErrorCapture
{
public:
    StandardErrorCapture()
    {
        file.open();
        std::fflush(stderr);
        saved = ::dup(STDERR_FILENO);
        ::dup2(file.handle(), STDERR_FILENO);
    }
    ~StandardErrorCapture() { restore(); }
    Q_DISABLE_COPY_MOVE(StandardErrorCapture)

    QString text()
    {
        restore();
        file.seek(0);
        return QString::fromUtf8(file.readAll());
    }

private:
    void restore()
    {
        if (saved < 0)
            return;
        ::dup2(saved, STDERR_FILENO);
        ::close(saved);
        saved = -1;
    }

    QTemporaryFile file;
    int saved = -1;
};

QString contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll())
                                          : u"(cannot be read)"_s;
}

// The entries of a log file with TIME in place of their times.
QString withoutTimes(QString text)
{
    static const QRegularExpression time(u"^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}"_s,
                                         QRegularExpression::MultilineOption);
    return text.replace(time, u"TIME"_s);
}

} // namespace

// Messages reach the engines that want them, and no others.
class tst_Logger : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        logger = std::make_unique<Logger>();
        journal.clear();
    }
    void cleanup()
    {
        Logger::setInstance(nullptr);
        logger.reset();
    }

    void hasFixedNumbersForTypes();
    void namesTypes_data();
    void namesTypes();
    void joinsParts_data();
    void joinsParts();
    void choosesEngines_data();
    void choosesEngines();
    void marksPriorityMessages();
    void tellsOfEveryMessage();
    void refusesEnginesWithoutANameOfTheirOwn();
    void ownsItsEngines();
    void handsADetachedEngineBack();
    void forgetsADeletedEngine();
    void leavesOutInactiveEngines();
    void doesNotHandAnEngineWhatItLogsItself();
    void survivesEnginesThatLogOnEveryMessage();
    void survivesAnEngineThatDeletesItself();
    void survivesAnEngineThatDeletesTheNext();
    void canBeReplaced();

    void takesMessagesOfOtherThreadsOnItsOwn();
    void takesASingleMessageOfAnotherThread();
    void takesThemBeforeItsOwnNextMessage();
    void takesThemBeforeItGoes();
    void losesNoneOfManyThreads();

    void writesToStandardError_data();
    void writesToStandardError();
    void writesOnlyChosenLevelsToStandardError();

    void writesToAFile();
    void givesEachEngineAFileOfItsOwn();
    void startsANewFileWhenOneIsFull();
    void removesOldFilesThatNobodyWrites();
    void leavesOtherFilesAlone();
    void leavesFilesThatAreWrittenAlone();
    void saysWhyAFileCannotBeOpened();
    void dropsMessagesUntilItIsOpen();
    void saysOnceThatAFileCannotBeWritten();
    void sharesItsFolderWithOtherProcesses();

private:
    JournalEngine *attach(const QString &name)
    {
        auto *const engine = new JournalEngine(name, &journal);
        logger->attachLoggerEngine(engine);
        return engine;
    }

    std::unique_ptr<Logger> logger;
    QStringList journal;
};

void tst_Logger::hasFixedNumbersForTypes()
{
    QCOMPARE(int(Logger::None), 1);
    QCOMPARE(int(Logger::Info), 2);
    QCOMPARE(int(Logger::Warning), 4);
    QCOMPARE(int(Logger::Error), 8);
    QCOMPARE(int(Logger::Fatal), 16);
    QCOMPARE(int(Logger::Debug), 32);
    QCOMPARE(int(Logger::Trace), 64);
    QCOMPARE(int(Logger::AllLogLevels), 126);
    QCOMPARE(int(LoggerEngine::EngineSpecific), 2);
}

void tst_Logger::namesTypes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");

    QTest::newRow("type-name-1 none") << 1 << u"None"_s;
    QTest::newRow("type-name-2 information") << 2 << u"Info"_s;
    QTest::newRow("type-name-3 warning") << 4 << u"Warning"_s;
    QTest::newRow("type-name-4 error") << 8 << u"Error"_s;
    QTest::newRow("type-name-5 fatal") << 16 << u"Fatal"_s;
    QTest::newRow("type-name-6 debug") << 32 << u"Debug"_s;
    QTest::newRow("type-name-7 trace") << 64 << u"Trace"_s;
    QTest::newRow("type-name-8 a number that is no type") << 3 << u""_s;
}

void tst_Logger::namesTypes()
{
    QFETCH(int, type);
    QFETCH(QString, name);

    QCOMPARE(Logger::messageTypeName(Logger::MessageType(type)), name);
}

void tst_Logger::joinsParts_data()
{
    QTest::addColumn<QVariantList>("parts");
    QTest::addColumn<QString>("text");

    using List = QVariantList;
    const QVariant none;
    QTest::newRow("parts-join-1 a message alone") << List {u"a b"_s, none, none, none} << u"a b"_s;
    QTest::newRow("parts-join-2 all four") << List {u"a"_s, u"b"_s, u"c"_s, u"d"_s} << u"a b c d"_s;
    QTest::newRow("parts-join-3 empty ones in between")
        << List {u"a"_s, none, u""_s, u"d"_s} << u"a d"_s;
    QTest::newRow("parts-join-4 nothing at all") << List {none, none, none, none} << u""_s;
    QTest::newRow("parts-type-1 bytes")
        << List {QByteArray("caf\xc3\xa9"), none, none, none} << u"caf\u00e9"_s;
    QTest::newRow("parts-type-2 numbers") << List {u"n"_s, 5, 2.5, true} << u"n 5 2.5 true"_s;
    QTest::newRow("parts-type-3 a list")
        << List {u"of"_s, QStringList {u"a"_s, u"b"_s}, none, none} << u"of a, b"_s;
    QTest::newRow("parts-text-1 markup is text")
        << List {u"<b>x</b> &amp;"_s, none, none, none} << u"<b>x</b> &amp;"_s;
    QTest::newRow("parts-text-2 placeholders are text")
        << List {u"%1 %2"_s, u"%1"_s, none, none} << u"%1 %2 %1"_s;
    QTest::newRow("parts-text-3 blanks at the ends stay")
        << List {u" a "_s, none, none, none} << u" a "_s;
}

void tst_Logger::joinsParts()
{
    QFETCH(QVariantList, parts);
    QFETCH(QString, text);
    attach(u"E"_s);

    logger->logMessage(QString(), Logger::Info, parts[0], parts[1], parts[2], parts[3]);
    logger->logPriorityMessage(QString(), Logger::Info, parts[0], parts[1], parts[2], parts[3]);

    QCOMPARE(journal, QStringList({u"E 2 "_s + text, u"E 2! "_s + text}));
}

void tst_Logger::choosesEngines_data()
{
    QTest::addColumn<int>("contexts");
    QTest::addColumn<int>("types");
    QTest::addColumn<QString>("engineName");
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("taken");

    const int all = LoggerEngine::AllContexts;
    const int system = LoggerEngine::SystemWide;
    const int specific = LoggerEngine::EngineSpecific;
    QTest::newRow("engine-context-1 all contexts, to all") << all << 126 << u""_s << 2 << true;
    QTest::newRow("engine-context-2 all contexts, by name") << all << 126 << u"E"_s << 2 << true;
    QTest::newRow("engine-context-3 all contexts, another name")
        << all << 126 << u"F"_s << 2 << false;
    QTest::newRow("engine-context-4 names are compared with case")
        << all << 126 << u"e"_s << 2 << false;
    QTest::newRow("engine-context-5 system wide, to all") << system << 126 << u""_s << 2 << true;
    QTest::newRow("engine-context-6 system wide, by name") << system << 126 << u"E"_s << 2 << false;
    QTest::newRow("engine-context-7 specific, to all") << specific << 126 << u""_s << 2 << false;
    QTest::newRow("engine-context-8 specific, by name") << specific << 126 << u"E"_s << 2 << true;
    QTest::newRow("engine-type-1 in the mask") << all << 12 << u""_s << 8 << true;
    QTest::newRow("engine-type-2 not in the mask") << all << 12 << u""_s << 2 << false;
    QTest::newRow("engine-type-3 an empty mask") << all << 0 << u"E"_s << 8 << false;
    QTest::newRow("engine-type-4 no level is not among all levels")
        << all << 126 << u""_s << 1 << false;
}

void tst_Logger::choosesEngines()
{
    QFETCH(int, contexts);
    QFETCH(int, types);
    QFETCH(QString, engineName);
    QFETCH(int, type);
    QFETCH(bool, taken);
    JournalEngine *const engine = attach(u"E"_s);
    engine->setMessageContexts(contexts);
    engine->setMessageTypes(types);

    logger->logMessage(engineName, Logger::MessageType(type), u"x"_s);

    QCOMPARE(journal, taken ? QStringList {u"E %1 x"_s.arg(type)} : QStringList());
}

void tst_Logger::marksPriorityMessages()
{
    attach(u"E"_s);
    QSignalSpy spy(logger.get(), &Logger::priorityMessage);

    logger->logMessage(QString(), Logger::Info, u"plain"_s);
    QCOMPARE(spy.size(), 0);
    logger->logPriorityMessage(QString(), Logger::Error, u"urgent"_s);

    QCOMPARE(journal, QStringList({u"E 2 plain"_s, u"E 8! urgent"_s}));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy[0][0].value<Logger::MessageType>(), Logger::Error);
    QCOMPARE(spy[0][1].toString(), u"urgent"_s);
}

void tst_Logger::tellsOfEveryMessage()
{
    QSignalSpy spy(logger.get(), &Logger::messageLogged);

    logger->logMessage(u"nobody"_s, Logger::Warning, u"a"_s);
    logger->logPriorityMessage(QString(), Logger::Info, u"b"_s);

    QCOMPARE(spy.size(), 2);
    QCOMPARE(spy[0][0].toString(), u"nobody"_s);
    QCOMPARE(spy[0][1].value<Logger::MessageType>(), Logger::Warning);
    QCOMPARE(spy[0][2].toString(), u"a"_s);
    QCOMPARE(spy[1][0].toString(), u""_s);
    QCOMPARE(spy[1][2].toString(), u"b"_s);
}

void tst_Logger::refusesEnginesWithoutANameOfTheirOwn()
{
    LoggerEngine *const first = attach(u"E"_s);
    JournalEngine second(u"E"_s, &journal);
    JournalEngine nameless(QString(), &journal);

    QVERIFY(!logger->attachLoggerEngine(&second));
    QVERIFY(!logger->attachLoggerEngine(first));
    QVERIFY(!logger->attachLoggerEngine(&nameless));
    QVERIFY(!logger->attachLoggerEngine(nullptr));

    QCOMPARE(second.parent(), nullptr);
    QCOMPARE(logger->loggerEngineNames(), QStringList {u"E"_s});
    QCOMPARE(logger->loggerEngineReference(u"E"_s), first);
}

void tst_Logger::ownsItsEngines()
{
    const QPointer<LoggerEngine> first = attach(u"A"_s);
    const QPointer<LoggerEngine> second = attach(u"B"_s);
    QCOMPARE(logger->loggerEngineNames(), QStringList({u"A"_s, u"B"_s}));

    logger.reset();

    QVERIFY(!first);
    QVERIFY(!second);
}

void tst_Logger::handsADetachedEngineBack()
{
    LoggerEngine *const engine = attach(u"E"_s);

    std::unique_ptr<LoggerEngine> detached(logger->detachLoggerEngine(u"E"_s));

    QCOMPARE(detached.get(), engine);
    QCOMPARE(engine->parent(), nullptr);
    QCOMPARE(logger->detachLoggerEngine(u"E"_s), nullptr);
    QCOMPARE(logger->loggerEngineNames(), QStringList());
    logger->logMessage(QString(), Logger::Info, u"x"_s);
    QCOMPARE(journal, QStringList());

    QVERIFY(logger->attachLoggerEngine(engine));
    QCOMPARE(detached.release()->parent(), logger.get());
}

void tst_Logger::forgetsADeletedEngine()
{
    LoggerEngine *const engine = attach(u"E"_s);

    delete engine;

    QCOMPARE(logger->loggerEngineNames(), QStringList());
    QCOMPARE(logger->loggerEngineReference(u"E"_s), nullptr);
    logger->logMessage(QString(), Logger::Info, u"x"_s);
    QCOMPARE(journal, QStringList());
}

void tst_Logger::leavesOutInactiveEngines()
{
    LoggerEngine *const engine = attach(u"E"_s);

    engine->setActive(false);
    logger->logMessage(QString(), Logger::Info, u"a"_s);
    engine->setActive(true);
    logger->logMessage(QString(), Logger::Info, u"b"_s);

    QCOMPARE(journal, QStringList {u"E 2 b"_s});
}

void tst_Logger::doesNotHandAnEngineWhatItLogsItself()
{
    JournalEngine *const first = attach(u"A"_s);
    attach(u"B"_s);
    first->reaction = [this] { logger->logMessage(QString(), Logger::Warning, u"from A"_s); };

    logger->logMessage(QString(), Logger::Info, u"x"_s);

    QCOMPARE(journal, QStringList({u"A 2 x"_s, u"B 4 from A"_s, u"B 2 x"_s}));
}

void tst_Logger::survivesEnginesThatLogOnEveryMessage()
{
    const auto again = [this] { logger->logMessage(QString(), Logger::Warning, u"again"_s); };
    attach(u"A"_s)->reaction = again;
    attach(u"B"_s)->reaction = again;

    logger->logMessage(QString(), Logger::Info, u"x"_s);

    QCOMPARE(journal, QStringList({u"A 2 x"_s, u"B 4 again"_s, u"B 2 x"_s, u"A 4 again"_s}));
}

void tst_Logger::survivesAnEngineThatDeletesItself()
{
    JournalEngine *const first = attach(u"A"_s);
    attach(u"B"_s);
    first->reaction = [first] { first->deleteLater(); };

    logger->logMessage(QString(), Logger::Info, u"x"_s);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    logger->logMessage(QString(), Logger::Info, u"y"_s);

    QCOMPARE(journal, QStringList({u"A 2 x"_s, u"B 2 x"_s, u"B 2 y"_s}));
}

void tst_Logger::survivesAnEngineThatDeletesTheNext()
{
    JournalEngine *const first = attach(u"A"_s);
    LoggerEngine *const second = attach(u"B"_s);
    attach(u"C"_s);
    first->reaction = [&] { delete second; };

    logger->logMessage(QString(), Logger::Info, u"x"_s);

    QCOMPARE(journal, QStringList({u"A 2 x"_s, u"C 2 x"_s}));
}

void tst_Logger::canBeReplaced()
{
    Logger *const standard = Logger::instance();
    QVERIFY(standard);
    QCOMPARE(Logger::instance(), standard);

    Logger::setInstance(logger.get());
    QCOMPARE(Logger::instance(), logger.get());
    Logger::setInstance(nullptr);
    QCOMPARE(Logger::instance(), standard);

    Logger::setInstance(logger.get());
    logger.reset();
    QCOMPARE(Logger::instance(), standard);
}

void tst_Logger::takesMessagesOfOtherThreadsOnItsOwn()
{
    QThread *takenOn = nullptr;
    attach(u"a"_s)->reaction = [&] { takenOn = QThread::currentThread(); };
    attach(u"b"_s);
    std::thread([this] {
        logger->logMessage(u"a"_s, Logger::Info, u"one"_s, 1);
        logger->logPriorityMessage(QString(), Logger::Error, u"two"_s);
    }).join();
    QCOMPARE(journal, QStringList());
    QTRY_COMPARE(journal, (QStringList {u"a 2 one 1"_s, u"a 8! two"_s, u"b 8! two"_s}));
    QCOMPARE(takenOn, QThread::currentThread());
}

void tst_Logger::takesASingleMessageOfAnotherThread()
{
    attach(u"a"_s);
    for (int i = 1; i <= 2; ++i) {
        std::thread([this] { logger->logMessage(QString(), Logger::Info, u"theirs"_s); }).join();
        QTRY_COMPARE(journal.size(), i);
    }
}

void tst_Logger::takesThemBeforeItsOwnNextMessage()
{
    attach(u"a"_s);
    std::thread([this] { logger->logMessage(QString(), Logger::Info, u"theirs"_s); }).join();
    logger->logMessage(QString(), Logger::Info, u"ours"_s);
    QCOMPARE(journal, (QStringList {u"a 2 theirs"_s, u"a 2 ours"_s}));
    QCoreApplication::processEvents();
    QCOMPARE(journal.size(), 2);
}

void tst_Logger::takesThemBeforeItGoes()
{
    attach(u"a"_s);
    std::thread([this] { logger->logMessage(QString(), Logger::Info, u"last"_s); }).join();
    logger.reset();
    QCOMPARE(journal, QStringList {u"a 2 last"_s});
}

void tst_Logger::losesNoneOfManyThreads()
{
    constexpr int threadCount = 4;
    constexpr int messageCount = 500;
    attach(u"a"_s);
    std::vector<std::thread> threads;
    for (int number = 0; number < threadCount; ++number) {
        threads.emplace_back([this, number] {
            for (int i = 0; i < messageCount; ++i)
                logger->logMessage(QString(), Logger::Info, u"%1 %2"_s.arg(number).arg(i));
        });
    }
    for (int i = 0; i < messageCount; ++i)
        logger->logMessage(QString(), Logger::Info, u"own %1"_s.arg(i));
    for (std::thread &thread : threads)
        thread.join();
    QTRY_COMPARE(journal.size(), (threadCount + 1) * messageCount);
    for (int number = 0; number < threadCount; ++number) {
        const QStringList ofOne = journal.filter(u"a 2 %1 "_s.arg(number));
        QCOMPARE(ofOne.size(), messageCount);
        for (int i = 0; i < messageCount; ++i)
            QCOMPARE(ofOne.at(i), u"a 2 %1 %2"_s.arg(number).arg(i));
    }
}

void tst_Logger::writesToStandardError_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("entry");

    QTest::newRow("stderr-type-1 information") << 2 << u"a"_s << u"Info: a\n"_s;
    QTest::newRow("stderr-type-2 warning") << 4 << u"a"_s << u"Warning: a\n"_s;
    QTest::newRow("stderr-type-3 error") << 8 << u"f.xml:12: b"_s << u"Error: f.xml:12: b\n"_s;
    QTest::newRow("stderr-text-1 nothing") << 2 << u""_s << u"Info: \n"_s;
    QTest::newRow("stderr-text-2 letters beyond ASCII")
        << 2 << u"\u20ac \U0001F600"_s << u"Info: \u20ac \U0001F600\n"_s;
    QTest::newRow("stderr-lines-1 further lines are indented")
        << 8 << u"a\nError: b\n\nc"_s << u"Error: a\n    Error: b\n    \n    c\n"_s;
    QTest::newRow("stderr-lines-2 a line end at the end adds none")
        << 2 << u"a\n"_s << u"Info: a\n"_s;
    QTest::newRow("stderr-lines-3 every kind of line end")
        << 2 << u"a\r\nb\rc\nd"_s << u"Info: a\n    b\n    c\n    d\n"_s;
    QTest::newRow("stderr-lines-4 only a line end") << 2 << u"\n"_s << u"Info: \n"_s;
    QTest::newRow("stderr-control-1 an escape sequence is spelt out")
        << 2 << u"\x1b[31mred\x07"_s << u"Info: \\x1b[31mred\\x07\n"_s;
    QTest::newRow("stderr-control-2 a zero")
        << 2 << u"a"_s + QChar() + u"b"_s << u"Info: a\\x00b\n"_s;
    QTest::newRow("stderr-control-3 a tab stays") << 2 << u"a\tb"_s << u"Info: a\tb\n"_s;
    QTest::newRow("stderr-control-4 delete and the upper controls")
        << 2 << u"\x7f\u009b"_s << u"Info: \\x7f\\x9b\n"_s;
}

void tst_Logger::writesToStandardError()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    QFETCH(QString, entry);
    logger->attachLoggerEngine(new StandardErrorEngine);

    StandardErrorCapture capture;
    logger->logMessage(QString(), Logger::MessageType(type), text);

    QCOMPARE(capture.text(), entry);
}

void tst_Logger::writesOnlyChosenLevelsToStandardError()
{
    auto *const engine = new StandardErrorEngine;
    QVERIFY(logger->attachLoggerEngine(engine));
    engine->setMessageTypes(Logger::Warning | Logger::Error | Logger::Fatal);

    StandardErrorCapture capture;
    for (const Logger::MessageType type : {Logger::Info, Logger::Warning, Logger::Error,
                                           Logger::Fatal, Logger::Debug, Logger::Trace})
        logger->logPriorityMessage(QString(), type, u"x"_s);

    QCOMPARE(capture.text(), u"Warning: x\nError: x\nFatal: x\n"_s);
}

void tst_Logger::writesToAFile()
{
    const QTemporaryDir folder;
    auto *const engine = new FileLoggerEngine(u"File"_s, folder.filePath(u"Logs/deep"_s));
    QVERIFY(logger->attachLoggerEngine(engine));
    const Status opened = engine->open();
    QVERIFY2(opened.isOk(), qPrintable(opened.text()));

    logger->logMessage(QString(), Logger::Info, u"a \u20ac"_s);
    logger->logPriorityMessage(QString(), Logger::Error, u"b\nc\x1b"_s);

    QCOMPARE(withoutTimes(contentOf(engine->fileName())),
             u"TIME Info: a \u20ac\nTIME Error: b\n    c\\x1b\n"_s);
    static const QRegularExpression pattern(
        u"^%1/Logs/deep/\\d{4}-\\d\\d-\\d\\d_\\d{6}_%2_0001\\.log$"_s
            .arg(QRegularExpression::escape(folder.path()))
            .arg(QCoreApplication::applicationPid()));
    QVERIFY2(pattern.match(engine->fileName()).hasMatch(), qPrintable(engine->fileName()));
}

void tst_Logger::givesEachEngineAFileOfItsOwn()
{
    const QTemporaryDir folder;
    FileLoggerEngine first(u"A"_s, folder.path());
    FileLoggerEngine second(u"B"_s, folder.path());
    QVERIFY(first.open().isOk());
    QVERIFY(second.open().isOk());

    first.logMessage(Logger::Info, u"a"_s);
    second.logMessage(Logger::Info, u"b"_s);

    QVERIFY(first.fileName() != second.fileName());
    QCOMPARE(withoutTimes(contentOf(first.fileName())), u"TIME Info: a\n"_s);
    QCOMPARE(withoutTimes(contentOf(second.fileName())), u"TIME Info: b\n"_s);
}

void tst_Logger::startsANewFileWhenOneIsFull()
{
    const QTemporaryDir folder;
    FileLoggerEngine engine(u"A"_s, folder.path());
    engine.setLimits(100, 10);
    QVERIFY(engine.open().isOk());
    const QString first = engine.fileName();

    engine.logMessage(Logger::Info, QString(50, u'a'));
    QCOMPARE(engine.fileName(), first);
    engine.logMessage(Logger::Info, QString(200, u'b'));
    const QString second = engine.fileName();
    QVERIFY(second != first);
    engine.logMessage(Logger::Info, u"c"_s);

    QVERIFY(engine.fileName() != second);
    QCOMPARE(withoutTimes(contentOf(first)), u"TIME Info: "_s + QString(50, u'a') + u'\n');
    QCOMPARE(withoutTimes(contentOf(second)), u"TIME Info: "_s + QString(200, u'b') + u'\n');
    QCOMPARE(withoutTimes(contentOf(engine.fileName())), u"TIME Info: c\n"_s);
}

void tst_Logger::removesOldFilesThatNobodyWrites()
{
    const QTemporaryDir folder;
    FileLoggerEngine engine(u"A"_s, folder.path());
    engine.setLimits(1, 3);
    QVERIFY(engine.open().isOk());

    for (int message = 0; message < 50; ++message)
        engine.logMessage(Logger::Info, QString::number(message));

    const QDir logs(folder.path());
    QCOMPARE(logs.entryList(QDir::Files).size(), 3);
    QString kept;
    for (const QString &name : logs.entryList(QDir::Files, QDir::Time | QDir::Reversed))
        kept += contentOf(logs.filePath(name));
    QVERIFY(kept.contains(u"Info: 49\n"_s));
    QVERIFY(!kept.contains(u"Info: 40\n"_s));
}

void tst_Logger::leavesOtherFilesAlone()
{
    const QTemporaryDir folder;
    for (const QString &name : {u"mine.log"_s, u"2020-01-01_000000_1_1.log.txt"_s,
                                u"2020-01-01.log"_s, u"2020-01-01_000000_1_.log"_s,
                                u"2020-01-01_000000__1.log"_s, u"2020-01-01_000000_1.log"_s,
                                u"2020-01-01_000000_1_1a.log"_s, u"2020-01-01_000000_1_1_1.log"_s,
                                u"2020-01-01-000000_1_1.log"_s, u"02020-01-01_000000_1_1.log"_s,
                                u"2020-0a-01_000000_1_1.log"_s, u"2020-01-01_000000_.log"_s}) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QVERIFY(QFile::link(u"mine.log"_s, folder.filePath(u"2020-01-01_000000_2_1.log"_s)));
    QVERIFY(QDir(folder.path()).mkdir(u"2020-01-01_000000_3_1.log"_s));
    const QStringList before = QDir(folder.path()).entryList();
    FileLoggerEngine engine(u"A"_s, folder.path());
    engine.setLimits(1, 1);
    QVERIFY(engine.open().isOk());

    for (int message = 0; message < 5; ++message)
        engine.logMessage(Logger::Info, u"x"_s);

    QStringList after = QDir(folder.path()).entryList();
    QVERIFY(after.removeOne(QFileInfo(engine.fileName()).fileName()));
    QCOMPARE(after, before);
}

void tst_Logger::leavesFilesThatAreWrittenAlone()
{
    const QTemporaryDir folder;
    FileLoggerEngine other(u"B"_s, folder.path());
    QVERIFY(other.open().isOk());
    other.logMessage(Logger::Info, u"old but in use"_s);
    FileLoggerEngine engine(u"A"_s, folder.path());
    engine.setLimits(1, 1);
    QVERIFY(engine.open().isOk());

    for (int message = 0; message < 5; ++message)
        engine.logMessage(Logger::Info, u"x"_s);

    QCOMPARE(withoutTimes(contentOf(other.fileName())), u"TIME Info: old but in use\n"_s);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 2);
}

void tst_Logger::saysWhyAFileCannotBeOpened()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"Logs"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    FileLoggerEngine engine(u"A"_s, folder.filePath(u"Logs"_s));

    const Status opened = engine.open();

    QCOMPARE(opened.kind(), Status::Kind::Io);
    static const QRegularExpression pattern(
        u"^Cannot write the log file \"%1/Logs/[0-9_-]+\\.log\": Not a directory$"_s.arg(
            QRegularExpression::escape(folder.path())));
    QVERIFY2(pattern.match(opened.text()).hasMatch(), qPrintable(opened.text()));
    QCOMPARE(engine.fileName(), QString());
    QVERIFY(!engine.open().isOk());
}

void tst_Logger::dropsMessagesUntilItIsOpen()
{
    const QTemporaryDir folder;
    FileLoggerEngine engine(u"A"_s, folder.path());

    engine.logMessage(Logger::Info, u"early"_s);
    QVERIFY(engine.open().isOk());
    engine.logMessage(Logger::Info, u"late"_s);

    QCOMPARE(withoutTimes(contentOf(engine.fileName())), u"TIME Info: late\n"_s);
}

void tst_Logger::saysOnceThatAFileCannotBeWritten()
{
    const QTemporaryDir folder;
    Logger::setInstance(logger.get());
    auto *const engine = new FileLoggerEngine(u"File"_s, folder.path());
    QVERIFY(logger->attachLoggerEngine(engine));
    attach(u"E"_s);
    QVERIFY(engine->open().isOk());
    const QString file = engine->fileName();

    // A limit on the size of files fails the write, as a full disk does.
    rlimit before = {};
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {100, before.rlim_max};
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    logger->logMessage(QString(), Logger::Info, QString(200, u'x'));
    logger->logMessage(QString(), Logger::Info, u"after"_s);
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &before), 0);
    ::signal(SIGXFSZ, handler);

    QCOMPARE(
        journal,
        QStringList({u"E 4 Cannot write the log file \"%1\" any more: File too large"_s.arg(file),
                     u"E 2 "_s + QString(200, u'x'), u"E 2 after"_s}));
    QCOMPARE(engine->fileName(), QString());
}

void tst_Logger::sharesItsFolderWithOtherProcesses()
{
    const QTemporaryDir folder;
    QList<pid_t> writers;
    for (int writer = 0; writer < 4; ++writer) {
        const pid_t child = ::fork();
        if (child == 0) {
            FileLoggerEngine engine(u"A"_s, folder.path());
            engine.setLimits(1'000'000, 100);
            bool done = engine.open().isOk();
            for (int message = 0; message < 200; ++message)
                engine.logMessage(Logger::Info, u"%1 of %2"_s.arg(message).arg(writer));
            done = done && !engine.fileName().isEmpty();
            ::_exit(done ? 0 : 1);
        }
        writers.append(child);
    }
    for (const pid_t writer : writers) {
        int status = -1;
        ::waitpid(writer, &status, 0);
        QCOMPARE(status, 0);
    }

    // Every process's messages are complete and in their order.
    qsizetype messages = 0;
    const QDir logs(folder.path());
    for (const QString &name : logs.entryList(QDir::Files)) {
        const QStringList lines =
            withoutTimes(contentOf(logs.filePath(name))).split(u'\n', Qt::SkipEmptyParts);
        const QString writer = lines.value(0).section(u" of "_s, 1);
        for (qsizetype message = 0; message < lines.size(); ++message)
            QCOMPARE(lines[message], u"TIME Info: %1 of %2"_s.arg(message).arg(writer));
        messages += lines.size();
    }
    QCOMPARE(messages, 800);
}

GUILESS_TEST_CLASS(tst_Logger)
#include "tst_Logger.moc"
