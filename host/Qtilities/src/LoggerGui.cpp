#include <Qtilities/Logger.h>
#include <Qtilities/LoggerGui.h>

#include "LogWidget.h"

namespace Qtilities::CoreGui {

namespace {

using namespace Qt::Literals::StringLiterals;
using Logging::Logger;
using Logging::LoggerEngine;

QString freeEngineName(const QString &wish)
{
    const QString wanted = wish.isEmpty() ? u"Log"_s : wish;
    QString name = wanted;
    for (int number = 2; Logger::instance()->loggerEngineReference(name); ++number)
        name = u"%1 %2"_s.arg(wanted).arg(number);
    return name;
}

} // namespace

QWidget *LoggerGui::createLogWidget(QString *engineName, int displays, const QString &title,
                                    bool activate, int messageTypes)
{
    const bool named = engineName && !engineName->isEmpty();
    const QString name = freeEngineName(named ? *engineName : title);
    auto *const widget = new LogWidget(name, displays, messageTypes);
    widget->setWindowTitle(title);
    widget->engine()->setActive(activate);
    if (engineName)
        *engineName = name;
    return widget;
}

QWidget *LoggerGui::createSystemLogWidget(const QString &title)
{
    auto *const widget = new LogWidget(freeEngineName(title), AllDisplays, Logger::AllLogLevels);
    widget->setWindowTitle(title);
    widget->engine()->setMessageContexts(LoggerEngine::SystemWide);
    return widget;
}

} // namespace Qtilities::CoreGui
