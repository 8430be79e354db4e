#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QString>
#include <QWidget>

namespace Qtilities::CoreGui {

// Makes widgets that show a log: its lines as plain text, levels to choose from, a search, copy
// and clear. A widget keeps the last 50,000 lines, or 20 million characters, and says how many it
// had to drop. Priority messages stand out.
class QTILITIES_EXPORT LoggerGui
{
public:
    LoggerGui() = delete;

    // What a log widget shows, a mask: the messages, and a bar to filter, search and clear them.
    enum Display { MessagesDisplay = 1, ControlsDisplay = 2, AllDisplays = 3 };

    // A window with a log engine of its own, of the name *engineName, which gets a number behind
    // it when the name is taken; the title serves for no name. The engine is attached to the log
    // and goes with the window. With activate the engine starts to take messages at once;
    // messageTypes is a mask of Logger::MessageType. The caller owns the window.
    static QWidget *createLogWidget(QString *engineName, int displays, const QString &title,
                                    bool activate, int messageTypes);

    // The same for the messages to the whole system, as the main window shows them.
    static QWidget *createSystemLogWidget(const QString &title);
};

} // namespace Qtilities::CoreGui
