#include "app/window/windowlayout.h"

#include "app/session/preferences.h"
#include "app/session/Settings.h"

#include <QMainWindow>
#include <QScreen>
#include <QSplitter>

using namespace Qt::Literals::StringLiterals;

namespace windowlayout {

namespace {

constexpr QSize usualSize(1180, 780);
constexpr int framed = 94; // hundredths of the screen
// Changes with the set of docks and tool bars, so that an old layout is not restored wrongly.
constexpr int version = 4;
const QString group = u"Window"_s;

// Those with a name keep their parts' sizes.
QList<QSplitter *> splitters(const QMainWindow *window)
{
    QList<QSplitter *> named = window->findChildren<QSplitter *>();
    named.removeIf([](const QSplitter *splitter) { return splitter->objectName().isEmpty(); });
    return named;
}

} // namespace

QSize firstSize(const QMainWindow *window)
{
    // At a large scale the screen may be smaller; some of it is for the window's frame.
    const QSize available = window->screen()->availableSize();
    return usualSize.boundedTo(available * framed / 100);
}

void restore(QMainWindow *window)
{
    window->resize(firstSize(window));
    if (!preferences::remembers(preferences::WindowLayout))
        return;
    const Settings settings;
    window->restoreGeometry(settings.value(group + u"/geometry"_s).toByteArray());
    window->restoreState(settings.value(group + u"/state"_s).toByteArray(), version);
    for (QSplitter *splitter : splitters(window))
        splitter->restoreState(settings.value(group + u'/' + splitter->objectName()).toByteArray());
}

void save(QMainWindow *window)
{
    Settings settings;
    if (!preferences::remembers(preferences::WindowLayout)) {
        settings.remove(group);
        return;
    }
    settings.set(group + u"/geometry"_s, window->saveGeometry());
    settings.set(group + u"/state"_s, window->saveState(version));
    for (const QSplitter *splitter : splitters(window))
        settings.set(group + u'/' + splitter->objectName(), splitter->saveState());
}

} // namespace windowlayout
