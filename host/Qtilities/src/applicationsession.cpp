// What QtilitiesApplication knows without being one: it works in programs without windows, too, and
// so without Qt's library for them.
#include <Qtilities/QtilitiesApplication.h>

#include <QDir>
#include <QPointer>
#include <QStandardPaths>

namespace Qtilities::CoreGui {

namespace {

using namespace Qt::Literals::StringLiterals;

// What the static operations keep; never destroyed, so that it can be read until the very end.
struct Session
{
    QString path;
    QMainWindow *mainWindow = nullptr;
    QPointer<QObject> guard; // of the window; one of its class would ask for that library
};

Session &session()
{
    static auto *const theSession = new Session;
    return *theSession;
}

} // namespace

QString QtilitiesApplication::applicationSessionPath()
{
    if (!session().path.isEmpty())
        return session().path;
    return QDir::cleanPath(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
}

void QtilitiesApplication::setApplicationSessionPath(const QString &path)
{
    session().path = path.isEmpty() ? QString() : QDir::cleanPath(QDir(path).absolutePath());
}

QString QtilitiesApplication::settingsFileName()
{
    return applicationSessionPath() + "/settings.ini"_L1;
}

QMainWindow *QtilitiesApplication::mainWindow()
{
    return session().guard ? session().mainWindow : nullptr;
}

void QtilitiesApplication::setMainWindow(QMainWindow *window)
{
    session().mainWindow = window;
    session().guard = window;
}

} // namespace Qtilities::CoreGui
