// How a log looks and is reached: its columns, its colours on any palette, and the keyboard.

#include "tests/TestClass.h"

#include <Qtilities/Logger.h>
#include <Qtilities/LoggerGui.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QToolButton>

#include <cmath>
#include <memory>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::LoggerGui;
using Qtilities::Logging::Logger;

class tst_LogWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { window.reset(); }

    void shortLinesNeedNoScrollBar();
    void aLongLineCanBeScrolled();
    void coloursCanBeRead_data();
    void coloursCanBeRead();
    void coloursFollowThePalette();
    void aPartOfALineIsCopied_data();
    void aPartOfALineIsCopied();
    void readingALineDoesNotChangeIt();
    void theKeyboardReachesEverything();

private:
    void log(const QString &text, Logger::MessageType type = Logger::Info, bool priority = false);
    QModelIndex textAt(int row) const { return view->model()->index(row, 2); }

    std::unique_ptr<QWidget> window;
    QTableView *view = nullptr;
    QString engineName;
};

namespace {

QPalette dark()
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0x31, 0x36, 0x3b));
    palette.setColor(QPalette::Base, QColor(0x23, 0x26, 0x29));
    palette.setColor(QPalette::Text, QColor(0xef, 0xf0, 0xf1));
    palette.setColor(QPalette::WindowText, QColor(0xef, 0xf0, 0xf1));
    return palette;
}

QPalette light()
{
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    return palette;
}

// The relative luminance of the accessibility guidelines for web contents.
double luminance(const QColor &colour)
{
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF())
        + 0.0722 * part(colour.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const double one = luminance(a) + 0.05;
    const double other = luminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

QColor blend(const QColor &over, const QColor &ground)
{
    const double share = over.alphaF();
    return QColor::fromRgbF(float(over.redF() * share + ground.redF() * (1 - share)),
                            float(over.greenF() * share + ground.greenF() * (1 - share)),
                            float(over.blueF() * share + ground.blueF() * (1 - share)));
}

} // namespace

void tst_LogWindow::init()
{
    engineName = u"Test"_s;
    window.reset(LoggerGui::createLogWidget(&engineName, LoggerGui::AllDisplays, u"A log"_s, true,
                                            Logger::AllLogLevels));
    view = window->findChild<QTableView *>();
    window->resize(800, 300);
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window.get(), patient()));
}

// Logs a message and waits until it shows.
void tst_LogWindow::log(const QString &text, Logger::MessageType type, bool priority)
{
    const int rows = view->model()->rowCount();
    if (priority)
        Logger::instance()->logPriorityMessage(engineName, type, text);
    else
        Logger::instance()->logMessage(engineName, type, text);
    QTRY_COMPARE(view->model()->rowCount(), rows + 1);
}

void tst_LogWindow::shortLinesNeedNoScrollBar()
{
    log(u"short"_s);
    QCOMPARE(view->horizontalScrollBar()->maximum(), 0);
    for (const int width : {1200, 500}) {
        window->resize(width, 300);
        QTRY_COMPARE(view->horizontalScrollBar()->maximum(), 0);
        const int right = view->visualRect(textAt(0)).right();
        QCOMPARE(right, view->viewport()->width() - 1);
    }
}

void tst_LogWindow::aLongLineCanBeScrolled()
{
    log(QString(300, u'x'));
    const int needed = view->fontMetrics().horizontalAdvance(QString(300, u'x'));
    QVERIFY(view->visualRect(textAt(0)).width() >= needed);
    QVERIFY(view->horizontalScrollBar()->maximum() > 0);
}

void tst_LogWindow::coloursCanBeRead_data()
{
    QTest::addColumn<bool>("onDark");
    QTest::addColumn<int>("type");
    for (const bool onDark : {false, true}) {
        for (const auto type : {Logger::Info, Logger::Warning, Logger::Error, Logger::Fatal,
                                Logger::Debug, Logger::Trace}) {
            QTest::addRow("colour-%s-%d %s", onDark ? "dark" : "light", int(type),
                          qPrintable(Logger::messageTypeName(type)))
                << onDark << int(type);
        }
    }
}

void tst_LogWindow::coloursCanBeRead()
{
    QFETCH(const bool, onDark);
    QFETCH(const int, type);
    const QPalette palette = onDark ? dark() : light();
    window->setPalette(palette);
    log(u"plain"_s, Logger::MessageType(type));
    log(u"urgent"_s, Logger::MessageType(type), true);
    const QColor base = palette.color(QPalette::Base);
    for (int row = 0; row < 2; ++row) {
        const QVariant colour = textAt(row).data(Qt::ForegroundRole);
        const QVariant ground = textAt(row).data(Qt::BackgroundRole);
        const double found =
            contrast(colour.isValid() ? colour.value<QColor>() : palette.color(QPalette::Text),
                     ground.isValid() ? blend(ground.value<QColor>(), base) : base);
        QVERIFY2(found >= 4.5, qPrintable(QString::number(found)));
        QCOMPARE(ground.isValid(), row == 1);
    }
}

void tst_LogWindow::coloursFollowThePalette()
{
    window->setPalette(light());
    log(u"wrong"_s, Logger::Error);
    const QVariant before = textAt(0).data(Qt::ForegroundRole);
    window->setPalette(dark());
    QVERIFY(textAt(0).data(Qt::ForegroundRole) != before);
    window->setPalette(light());
    QCOMPARE(textAt(0).data(Qt::ForegroundRole), before);
}

void tst_LogWindow::aPartOfALineIsCopied_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("part-1 opened with a double click") << true;
    QTest::newRow("part-2 opened with F2") << false;
}

void tst_LogWindow::aPartOfALineIsCopied()
{
    QFETCH(const bool, byMouse);
    const QString text = QString(2000, u'x') + u" the end"_s;
    log(text);
    const QPoint place = view->visualRect(textAt(0)).topLeft() + QPoint(5, 3);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
    if (byMouse)
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, place);
    else
        QTest::keyClick(view, Qt::Key_F2);
    auto *field = view->viewport()->findChild<QLineEdit *>();
    QVERIFY(field);
    QCOMPARE(field->text(), text);
    field->setSelection(int(text.size()) - 3, 3);
    QTest::keyClick(field, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), u"end"_s);
}

void tst_LogWindow::readingALineDoesNotChangeIt()
{
    log(u"as it was"_s);
    view->setCurrentIndex(textAt(0));
    view->setFocus();
    QTest::keyClick(view, Qt::Key_F2);
    auto *field = view->viewport()->findChild<QLineEdit *>();
    QVERIFY(field);
    QTest::keyClicks(field, u"other"_s);
    QTest::keyClick(field, Qt::Key_Return);
    QTRY_VERIFY(!view->viewport()->findChild<QLineEdit *>());
    QCOMPARE(textAt(0).data().toString(), u"as it was"_s);
}

// From the first button on, Tab reaches all of them, the search and the lines.
void tst_LogWindow::theKeyboardReachesEverything()
{
    log(u"a line"_s);
    window->findChild<QToolButton *>(u"Info"_s)->setFocus();
    QStringList reached;
    while (!reached.contains(u"lines"_s) && reached.size() < 20) {
        const QWidget *focus = QApplication::focusWidget();
        reached.append(focus == view ? u"lines"_s : focus->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(reached,
             (QStringList {u"Info"_s, u"Warning"_s, u"Error"_s, u"Fatal"_s, u"Debug"_s, u"Trace"_s,
                           u"search"_s, u"copy"_s, u"clear"_s, u"lines"_s}));
    auto *info = window->findChild<QToolButton *>(u"Info"_s);
    info->setFocus();
    QTest::keyClick(info, Qt::Key_Space);
    QCOMPARE(view->model()->rowCount(), 0);
    QTest::keyClick(info, Qt::Key_Space);
    QCOMPARE(view->model()->rowCount(), 1);
}

TEST_CLASS(tst_LogWindow)
#include "tst_LogWindow.moc"
