#pragma once

#include "app/builds/BuildConfigurationPage.h"
#include "tests/host/MorvalenCore/SessionFixture.h"

#include <MorvalenCore/BuildConfiguration.h>

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;
using MorvalenCore::Interfaces::IDesign;

inline const BuildDescription debug {
    u"Debug"_s,
    {},
    {{u"CC"_s, u"cc"_s}},
    {{u"compile"_s, u"$(CC) -c $(INPUTS)"_s, {u"a.c"_s}, {u"a.o"_s}},
     {u"link"_s, u"ld $(INPUTS)"_s, {u"a.o"_s}, {u"a"_s}}},
};

// A real design with the configuration above in an editor of build configurations.
class ConfigurationPageTest : public QObject
{
    Q_OBJECT

protected Q_SLOTS:
    void init();
    void cleanup();

protected:
    void showPage(const QString &name);
    template <typename T>
    T *child(const char *name) const
    {
        return page->findChild<T *>(QLatin1StringView(name));
    }
    void type(QWidget *field, const QString &text) const
    {
        field->setFocus();
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(field, text);
    }
    void click(const char *name) const
    {
        QTest::mouseClick(child<QPushButton>(name), Qt::LeftButton);
    }
    void clickStep(int row) const
    {
        auto *view = child<QTableView>("stepTable");
        const QRect cell = view->visualRect(view->model()->index(row, 0));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, cell.center());
    }
    QString notice() const
    {
        const auto *bar = child<QWidget>("notice");
        QString text;
        for (const QLabel *label : bar->findChildren<QLabel *>())
            text += label->text();
        return bar->isVisible() ? text : QString();
    }
    void answer(const QString &text) const
    {
        for (QPushButton *button : child<QWidget>("notice")->findChildren<QPushButton *>()) {
            if (button->text() == text)
                QTest::mouseClick(button, Qt::LeftButton);
        }
    }
    // What another program would read.
    BuildDescription inTheFile(const QString &name);

    std::unique_ptr<SessionFixture> session;
    IDesign *design = nullptr;
    BuildConfiguration *configuration = nullptr;
    QPointer<BuildConfigurationPage> page;
    QString error;
};
