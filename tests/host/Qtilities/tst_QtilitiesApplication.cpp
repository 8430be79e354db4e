#include <Qtilities/QtilitiesApplication.h>

#include <QDir>
#include <QMainWindow>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;

// The session folder, its settings, and the main window.
class tst_QtilitiesApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QtilitiesApplication::setApplicationSessionPath(QString()); }

    void startsInThePlatformsFolder();
    void setsTheSessionPath_data();
    void setsTheSessionPath();
    void keepsARelativePathWhenTheFolderChanges();
    void namesTheSettingsFile();
    void sharesSettingsWithOtherProcesses();
    void knowsTheMainWindow();
};

void tst_QtilitiesApplication::startsInThePlatformsFolder()
{
    QCOMPARE(QtilitiesApplication::applicationSessionPath(),
             QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
}

void tst_QtilitiesApplication::setsTheSessionPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("session");

    QTest::newRow("session-1 an absolute path") << u"/a/b"_s << u"/a/b"_s;
    QTest::newRow("session-2 a path to be cleaned") << u"/a/../c//d/."_s << u"/c/d"_s;
    QTest::newRow("session-3 a slash at the end") << u"/a/b/"_s << u"/a/b"_s;
    QTest::newRow("session-4 blanks, brackets and dollar signs")
        << u"/a b/[c] $d"_s << u"/a b/[c] $d"_s;
    QTest::newRow("session-5 a relative path") << u"x/y"_s << QDir::currentPath() + u"/x/y"_s;
}

void tst_QtilitiesApplication::setsTheSessionPath()
{
    QFETCH(QString, path);
    QFETCH(QString, session);

    QtilitiesApplication::setApplicationSessionPath(path);

    QCOMPARE(QtilitiesApplication::applicationSessionPath(), session);
}

void tst_QtilitiesApplication::keepsARelativePathWhenTheFolderChanges()
{
    const QString before = QDir::currentPath();
    QtilitiesApplication::setApplicationSessionPath(u"x"_s);

    QVERIFY(QDir::setCurrent(u"/"_s));
    const QString path = QtilitiesApplication::applicationSessionPath();
    QVERIFY(QDir::setCurrent(before));

    QCOMPARE(path, before + u"/x"_s);
}

void tst_QtilitiesApplication::namesTheSettingsFile()
{
    QtilitiesApplication::setApplicationSessionPath(u"/a b"_s);

    QCOMPARE(QtilitiesApplication::settingsFileName(), u"/a b/settings.ini"_s);
}

void tst_QtilitiesApplication::sharesSettingsWithOtherProcesses()
{
    const QTemporaryDir folder;
    QtilitiesApplication::setApplicationSessionPath(folder.path());

    QList<pid_t> writers;
    for (int writer = 0; writer < 4; ++writer) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (int round = 0; round < 25; ++round) {
                QSettings settings(QtilitiesApplication::settingsFileName(), QSettings::IniFormat);
                settings.setValue(u"Writer%1/Key%2"_s.arg(writer).arg(round), round);
                settings.sync();
            }
            ::_exit(0);
        }
        writers.append(child);
    }
    for (const pid_t writer : writers) {
        int status = -1;
        ::waitpid(writer, &status, 0);
        QCOMPARE(status, 0);
    }

    const QSettings settings(QtilitiesApplication::settingsFileName(), QSettings::IniFormat);
    QCOMPARE(settings.allKeys().size(), 100);
    QCOMPARE(settings.value(u"Writer3/Key24"_s).toInt(), 24);
}

void tst_QtilitiesApplication::knowsTheMainWindow()
{
    QVERIFY(!QtilitiesApplication::mainWindow());
    auto window = std::make_unique<QMainWindow>();

    QtilitiesApplication::setMainWindow(window.get());
    QCOMPARE(QtilitiesApplication::mainWindow(), window.get());
    window.reset();

    QVERIFY(!QtilitiesApplication::mainWindow());
}

int main(int argc, char **argv)
{
    QtilitiesApplication application(argc, argv);
    tst_QtilitiesApplication test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_QtilitiesApplication.moc"
