#include "app/window/windowlayout.h"

#include "app/session/preferences.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QMainWindow>
#include <QSettings>
#include <QSplitter>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;

namespace windowlayout {

namespace {

constexpr QSize usualSize(1180, 780);
// Changes with the set of docks and tool bars, so that an old layout is not restored wrongly.
constexpr int version = 2;
const QString group = u"Window"_s;

// Those with a name keep their parts' sizes.
QList<QSplitter *> splitters(const QMainWindow *window)
{
    QList<QSplitter *> named = window->findChildren<QSplitter *>();
    named.removeIf([](const QSplitter *splitter) { return splitter->objectName().isEmpty(); });
    return named;
}

} // namespace

void restore(QMainWindow *window)
{
    window->resize(usualSize);
    if (!preferences::remembers(preferences::WindowLayout))
        return;
    QSettings settings(QtilitiesApplication::settingsFileName(), QSettings::IniFormat);
    settings.beginGroup(group);
    window->restoreGeometry(settings.value(u"geometry"_s).toByteArray());
    window->restoreState(settings.value(u"state"_s).toByteArray(), version);
    for (QSplitter *splitter : splitters(window))
        splitter->restoreState(settings.value(splitter->objectName()).toByteArray());
}

void save(QMainWindow *window)
{
    QSettings settings(QtilitiesApplication::settingsFileName(), QSettings::IniFormat);
    settings.beginGroup(group);
    if (!preferences::remembers(preferences::WindowLayout)) {
        settings.remove(QString());
        return;
    }
    settings.setValue(u"geometry"_s, window->saveGeometry());
    settings.setValue(u"state"_s, window->saveState(version));
    for (const QSplitter *splitter : splitters(window))
        settings.setValue(splitter->objectName(), splitter->saveState());
}

} // namespace windowlayout
