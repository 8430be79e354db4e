#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QApplication>
#include <QMainWindow>
#include <QString>

namespace Qtilities::CoreGui {

// The application object of a program with windows. The static operations work with any
// QApplication, so that a host may bring its own.
class QTILITIES_EXPORT QtilitiesApplication : public QApplication
{
    Q_OBJECT

public:
    QtilitiesApplication(int &argc, char **argv);

    // The session folder, absolute and clean; until it is set, the platform's folder for the
    // application's data.
    static QString applicationSessionPath();

    // Sets the session folder; a relative path is of the process's folder as it is now. An empty
    // one brings the platform's folder back.
    static void setApplicationSessionPath(const QString &path);

    // The settings file of the session: applicationSessionPath() + "/settings.ini", of
    // QSettings' INI format. Open it as SettingsFile.
    static QString settingsFileName();

    // The main window, or null when the program has none; stays its owner's.
    static QMainWindow *mainWindow();
    static void setMainWindow(QMainWindow *window);
};

} // namespace Qtilities::CoreGui
