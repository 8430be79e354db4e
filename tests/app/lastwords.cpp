// Ends while Qt has still something to say, as some Qts do when their static objects go.

#include "app/process/qtmessages.h"

#include <Qtilities/LoggerGui.h>

#include <QApplication>
#include <QWidget>

#include <cstdlib>

int main(int argc, char **argv)
{
    std::atexit([] { qWarning("the last words"); });
    qtmessages::sendToLog();
    new QApplication(argc, argv); // stays, as in a program that a script ends
    QWidget *const log =
        Qtilities::CoreGui::LoggerGui::createSystemLogWidget(QStringLiteral("Log"));
    log->show();
    qWarning("words in time");
    QCoreApplication::processEvents();
    qtmessages::dropFromNowOn();
    std::exit(3);
}
