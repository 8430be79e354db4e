#include "app/designs/DesignTree.h"
#include "app/MainWindow.h"
#include "app/Translation.h"
#include "app/window/ModeBar.h"
#include "console/QConsole.h"
#include "scripting/TclScriptManager.h"
#include "tests/needed.h"
#include "tests/scripting/ScriptingHost.h"
#include "tests/TestClass.h"

#include <Qtilities/Logger.h>
#include <Qtilities/LoggerGui.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QMenuBar>
#include <QPushButton>
#include <QSet>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QTranslator>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::LoggerGui;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;
using TclScripting::TclScriptManager;

// Which language the window speaks, and that it speaks all of it.
class tst_Translation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void theFirstKnownLanguageIsTaken_data();
    void theFirstKnownLanguageIsTaken();
    void itEndsWithTheObject();
    void numbersHaveTheirForms_data();
    void numbersHaveTheirForms();
    void theWindowSpeaksGerman();
    void theLogNamesItsLevelsInGerman();
    void theButtonsOfDialogsDoToo();
};

namespace {

QStringList titles(const QList<QAction *> &actions)
{
    QStringList found;
    for (const QAction *action : actions) {
        if (action->isVisible() && !action->isSeparator())
            found.append(action->text());
    }
    return found;
}

// Letters that two of the texts are reached by.
QStringList sharedLetters(const QStringList &texts)
{
    QSet<QString> letters;
    QStringList shared;
    for (const QString &text : texts) {
        const QString letter = QKeySequence::mnemonic(text).toString();
        if (!letter.isEmpty() && letters.contains(letter))
            shared.append(text);
        letters.insert(letter);
    }
    return shared;
}

} // namespace

void tst_Translation::initTestCase()
{
    NEEDS(QFile::exists(u":/translations/morvalen_de.qm"_s),
          "lrelease, when the program was built,", "qt6-l10n-tools");
}

void tst_Translation::theFirstKnownLanguageIsTaken_data()
{
    QTest::addColumn<QStringList>("languages");
    QTest::addColumn<QString>("taken");
    QTest::addColumn<QString>("copy");
    QTest::newRow("language-1 none") << QStringList() << u""_s << u"Copy"_s;
    QTest::newRow("language-2 C") << QStringList {u"C"_s} << u""_s << u"Copy"_s;
    QTest::newRow("language-3 German") << QStringList {u"de"_s} << u"de"_s << u"Kopieren"_s;
    QTest::newRow("language-4 German of a country")
        << QStringList {u"de-AT"_s, u"de"_s} << u"de"_s << u"Kopieren"_s;
    QTest::newRow("language-5 English rather than German")
        << QStringList {u"en-GB"_s, u"en"_s, u"de"_s} << u""_s << u"Copy"_s;
    QTest::newRow("language-6 German rather than English")
        << QStringList {u"de"_s, u"en"_s} << u"de"_s << u"Kopieren"_s;
    QTest::newRow("language-7 an unknown one rather than German")
        << QStringList {u"tlh"_s, u"de"_s} << u"de"_s << u"Kopieren"_s;
    QTest::newRow("language-8 one without a translation")
        << QStringList {u"fi-FI"_s} << u""_s << u"Copy"_s;
}

void tst_Translation::theFirstKnownLanguageIsTaken()
{
    QFETCH(const QStringList, languages);
    QFETCH(const QString, taken);
    QFETCH(const QString, copy);
    const Translation translation(languages);
    QCOMPARE(translation.language(), taken);
    QCOMPARE(QConsole::tr("Copy"), copy);
}

void tst_Translation::itEndsWithTheObject()
{
    {
        const Translation translation({u"de"_s});
        QCOMPARE(QConsole::tr("Copy"), u"Kopieren"_s);
    }
    QCOMPARE(QConsole::tr("Copy"), u"Copy"_s);
}

void tst_Translation::numbersHaveTheirForms_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("number-1") << u"en"_s << 2 << u"2 files"_s;
    QTest::newRow("number-2") << u"en"_s << 1000 << u"1000 files"_s;
    QTest::newRow("number-3") << u"de"_s << 0 << u"0 Dateien"_s;
    QTest::newRow("number-4") << u"de"_s << 1 << u"1 Datei"_s;
    QTest::newRow("number-5") << u"de"_s << 2 << u"2 Dateien"_s;
    QTest::newRow("number-6") << u"de"_s << 21 << u"21 Dateien"_s;
}

void tst_Translation::numbersHaveTheirForms()
{
    QFETCH(const QString, language);
    QFETCH(const int, number);
    const Translation translation({language});
    QTEST(DesignTree::tr("%n files", nullptr, number), "text");
}

void tst_Translation::theWindowSpeaksGerman()
{
    const QTemporaryDir session;
    QVERIFY(QDir(session.path()).mkdir(u"Scripts"_s));
    QtilitiesApplication::setApplicationSessionPath(session.path());
    ScriptingHost host;
    Logger log;
    Logger::setInstance(&log);
    MorvalenCore::MorvalenManager::setInstance(&host.program);
    {
        const Translation translation({u"de"_s});
        MainWindow window;
        QtilitiesApplication::setMainWindow(&window);
        window.addMode(new TclScriptManager(nullptr, &window));
        const QList<QAction *> menus = window.menuBar()->actions();
        QCOMPARE(titles(menus).join(u' '),
                 u"&Datei &Bearbeiten &Ansicht &Erstellen &Skripte &Hilfe"_s);
        QCOMPARE(sharedLetters(titles(menus)).join(u'\n'), QString());
    }
    Logger::setInstance(nullptr);
    QDir::setCurrent(QDir::rootPath());
}

void tst_Translation::theLogNamesItsLevelsInGerman()
{
    const Translation translation({u"de"_s});
    QString engine = u"levels"_s;
    const std::unique_ptr<QWidget> window(LoggerGui::createLogWidget(
        &engine, LoggerGui::AllDisplays, {}, true, Logger::AllLogLevels));
    const auto *messages = window->findChild<QTableView *>();
    QStringList buttons;
    QStringList levels;
    for (const auto *button : window->findChildren<QToolButton *>()) {
        if (button->isCheckable())
            buttons.append(button->text());
    }
    for (const auto type : {Logger::Info, Logger::Warning, Logger::Error, Logger::Fatal,
                            Logger::Debug, Logger::Trace})
        Logger::instance()->logMessage(engine, type, u"text"_s);
    QTRY_COMPARE(messages->model()->rowCount(), 6);
    for (int row = 0; row < 6; ++row)
        levels.append(messages->model()->index(row, 1).data().toString());
    QCOMPARE(buttons.join(u' '), u"Info Warnung Fehler Fatal Debug Trace"_s);
    QCOMPARE(levels, buttons);
}

// Where Qt's own translations are not installed.
void tst_Translation::theButtonsOfDialogsDoToo()
{
    QTranslator own;
    QVERIFY(own.load(u":/translations/morvalen_de.qm"_s));
    using Box = QDialogButtonBox;
    const Box box(Box::Ok | Box::Save | Box::SaveAll | Box::Open | Box::Yes | Box::YesToAll
                  | Box::No | Box::NoToAll | Box::Retry | Box::Close | Box::Cancel | Box::Discard
                  | Box::Help | Box::Apply | Box::Reset | Box::RestoreDefaults);
    QStringList said;
    for (const auto *button : box.buttons())
        said.append(own.translate("QPlatformTheme", button->text().toUtf8().constData()));
    said.sort();
    QCOMPARE(said.join(u", "_s),
             u"&Ja, &Nein, Abbrechen, Alles speichern, Anwenden, Hilfe, Ja, &alle, N&ein, keine, "
             "OK, Schließen, Speichern, Verwerfen, Voreinstellungen, Wiederholen, Zurücksetzen, "
             "Öffnen"_s);
}

TEST_CLASS(tst_Translation)
#include "tst_Translation.moc"
