#include <Qtilities/Logger.h>
#include <Qtilities/LoggerGui.h>

#include <QPlainTextEdit>
#include <QPointer>

namespace Qtilities::CoreGui {

namespace {

using namespace Qt::Literals::StringLiterals;
using Logging::Logger;
using Logging::LoggerEngine;

class TextEngine : public LoggerEngine
{
public:
    TextEngine(const QString &name, QPlainTextEdit *view) : LoggerEngine(name), textView(view) { }

    void logMessage(int, const QString &text) override { textView->appendPlainText(text); }
    void clearLog() override { textView->clear(); }

private:
    QPlainTextEdit *textView;
};

} // namespace

QWidget *LoggerGui::createLogWidget(QString *engineName, int, const QString &title, bool activate,
                                    int messageTypes)
{
    QString name = engineName ? *engineName : title;
    for (int number = 2; Logger::instance()->loggerEngineReference(name); ++number)
        name = u"%1 %2"_s.arg(engineName ? *engineName : title).arg(number);
    auto *const view = new QPlainTextEdit;
    view->setReadOnly(true);
    view->setMaximumBlockCount(10000);
    view->setWindowTitle(title);
    auto *const engine = new TextEngine(name, view);
    engine->setMessageTypes(messageTypes);
    engine->setActive(activate);
    QObject::connect(view, &QObject::destroyed, engine, [engine] { delete engine; });
    Logger::instance()->attachLoggerEngine(engine);
    if (engineName)
        *engineName = name;
    return view;
}

} // namespace Qtilities::CoreGui
