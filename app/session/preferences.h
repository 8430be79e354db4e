#pragma once

#include <QFont>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

// What the user has chosen for the window, kept in the session's settings. Setting nothing, or an
// empty text, brings the usual value back. The log says when it cannot be kept.
namespace preferences {

// What is kept from one run to the next.
enum Memory { WindowLayout, RecentFiles, ConsoleHistory, OpenThings };

bool remembers(Memory memory);
void setRemembers(Memory memory, bool remember);

// The font of the console; nothing when it is to have its usual one.
std::optional<QFont> consoleFont();
void setConsoleFont(const std::optional<QFont> &font);

// What is put in front of the commands of build steps.
QString launcher();
void setLauncher(const QString &prefix);

// The folders outside of working folders that builds may write to.
QStringList targetFolders();
void setTargetFolders(const QStringList &folders);

// How many steps of a build run at once; 0 leaves it to Ninja.
int jobs();
void setJobs(int count);

// Whether steps that do not depend on a failed one still run.
bool keepsGoing();
void setKeepsGoing(bool keepGoing);

// How many steps of a pool run at once, by the name, as it was written.
QMap<QString, QString> pools();
void setPools(const QMap<QString, QString> &depths);

// What is done with pages that are not saved before something is built.
enum class PagesBeforeBuild { Ask, Save, Leave };
PagesBeforeBuild pagesBeforeBuild();
void setPagesBeforeBuild(PagesBeforeBuild choice);

// The colours of the window.
enum class Theme { Desktop, Light, Dark };
Theme theme();
void setTheme(Theme theme);

// Whether what was set so far is in the settings file.
bool isWritable();

} // namespace preferences
