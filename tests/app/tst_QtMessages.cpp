#include "app/process/qtmessages.h"
#include "tests/patience.h"
#include "tests/TestClass.h"

#include <Qtilities/Logger.h>
#include <Qtilities/LoggerGui.h>

#include <QProcess>
#include <QSignalSpy>
#include <QTableView>
#include <QtTest>

#include <memory>
#include <thread>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::LoggerGui;
using Qtilities::Logging::Logger;

// Qt's own messages go to the log, from whichever thread they come.
class tst_QtMessages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aWarningIsADebugMessage()
    {
        QStringList messages;
        const auto connection =
            connect(Logger::instance(), &Logger::messageLogged, this,
                    [&](const QString &engine, Logger::MessageType type, const QString &text) {
                        messages.append(u"<%1> %2 %3"_s.arg(engine).arg(type).arg(text));
                    });
        qtmessages::sendToLog();
        qWarning("unusual");
        qDebug("detail");
        qInstallMessageHandler(nullptr);
        disconnect(connection);
        QCOMPARE(messages, (QStringList {u"<> 32 unusual"_s, u"<> 32 detail"_s}));
    }

    void viewsKeepTheirOwnMattersOut()
    {
        QStringList messages;
        const auto connection = connect(Logger::instance(), &Logger::messageLogged, this,
                                        [&](const QString &, Logger::MessageType,
                                            const QString &text) { messages.append(text); });
        qtmessages::sendToLog();
        qWarning("edit: editing failed");
        qWarning("QAbstractItemView::closeEditor called with an editor that does not belong to "
                 "this view");
        qWarning("QFSFileEngine::open: No file name specified");
        qInstallMessageHandler(nullptr);
        disconnect(connection);
        QCOMPARE(messages, QStringList {u"QFSFileEngine::open: No file name specified"_s});
    }

    void theEndIsQuiet()
    {
        QProcess child;
        child.setProcessChannelMode(QProcess::MergedChannels);
        child.start(QStringLiteral(LAST_WORDS), QStringList());
        QVERIFY(child.waitForFinished(patient(30'000)));
        QCOMPARE(child.readAll(), QByteArray());
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QCOMPARE(child.exitCode(), 3);
    }

    void warningsOfThreadsReachTheLogsWidget()
    {
        constexpr int threadCount = 3;
        constexpr int warningCount = 200;
        const std::unique_ptr<QWidget> widget(LoggerGui::createSystemLogWidget(u"Log"_s));
        widget->show();
        QVERIFY(QTest::qWaitForWindowExposed(widget.get()));
        const auto *view = widget->findChild<QTableView *>();
        const int before = view->model()->rowCount();
        qtmessages::sendToLog();
        std::vector<std::thread> threads;
        for (int number = 0; number < threadCount; ++number) {
            threads.emplace_back([] {
                for (int i = 0; i < warningCount; ++i)
                    qWarning("warning %d", i);
            });
        }
        for (int i = 0; i < warningCount; ++i) {
            qWarning("own warning %d", i);
            QCoreApplication::processEvents();
        }
        for (std::thread &thread : threads)
            thread.join();
        qInstallMessageHandler(nullptr);
        QTRY_COMPARE(view->model()->rowCount() - before, (threadCount + 1) * warningCount);
    }
};

TEST_CLASS(tst_QtMessages)
#include "tst_QtMessages.moc"
