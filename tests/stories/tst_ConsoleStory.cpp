// The console inside the window: the window's menus and keys take none of the console's own away.

#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/journal/CommandJournal.h"
#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/EditorManager.h>

#include <QClipboard>
#include <QShortcut>

using namespace Qt::Literals::StringLiterals;

class tst_ConsoleStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void noKeyOfTheConsoleIsTaken();
    void editingKeysEdit();
    void theEditMenuIsTheConsoles();
    void noKeyIsTakenTwice();
    void tabCompletesSubcommands_data();
    void tabCompletesSubcommands();

private:
    QtclConsole &console() const { return story->console(); }
    void key(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(&console(), Qt::Key(key), modifiers);
    }

    std::unique_ptr<Story> story;
};

void tst_ConsoleStory::initTestCase()
{
    story = std::make_unique<Story>();
    // An open text, whose actions know the same keys.
    Story::write(story->path(u"text"_s), "text\n");
    QString error;
    QVERIFY(MorvalenCore::EditorManager::instance()->createEditorForPath(
        story->path(u"text"_s), &error, QString(), true, false));
    story->window().activateMode(105);
}

void tst_ConsoleStory::init()
{
    console().setFocus();
    console().moveCursor(QTextCursor::End);
    console().replaceCurrentCommand(QString());
}

// No action of the window, visible or not, has a key of the console's tables and menu, or of the
// editing keys of a text behind them.
void tst_ConsoleStory::noKeyOfTheConsoleIsTaken()
{
    QSet<QKeySequence> own;
    for (const int plain :
         {Qt::Key_Tab, Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Home, Qt::Key_Up,
          Qt::Key_Down, Qt::Key_End, Qt::Key_Left, Qt::Key_Right, Qt::Key_PageUp, Qt::Key_PageDown,
          Qt::Key_Delete, Qt::Key_Insert}) {
        for (const int modifiers : {0, int(Qt::SHIFT), int(Qt::CTRL), int(Qt::CTRL | Qt::SHIFT)})
            own.insert(QKeySequence(plain | modifiers));
    }
    for (const auto standard :
         {QKeySequence::Undo, QKeySequence::Redo, QKeySequence::Cut, QKeySequence::Copy,
          QKeySequence::Paste, QKeySequence::Delete, QKeySequence::SelectAll,
          QKeySequence::DeleteEndOfLine, QKeySequence::DeleteCompleteLine,
          QKeySequence::DeleteStartOfWord, QKeySequence::DeleteEndOfWord}) {
        for (const QKeySequence &sequence : QKeySequence::keyBindings(standard))
            own.insert(sequence);
    }
    for (const char *menu : {"Ctrl+Z", "Ctrl+Y", "Ctrl+X", "Ctrl+Ins", "Ctrl+V", "Del", "Ctrl+A"})
        own.insert(QKeySequence(QLatin1StringView(menu)));

    QStringList taken;
    const QWidget *area = story->window().designsMode();
    const QList<QAction *> actions = story->window().findChildren<QAction *>();
    for (const QAction *action : actions) {
        const QList<QObject *> holders = action->associatedObjects();
        const bool reachesConsole = action->shortcutContext() == Qt::WindowShortcut
            || action->shortcutContext() == Qt::ApplicationShortcut;
        const auto *owner = qobject_cast<const QWidget *>(action->parent());
        if (!reachesConsole || holders.isEmpty()
            || (owner && (owner == &console() || area->isAncestorOf(owner))))
            continue;
        for (const QKeySequence &sequence : action->shortcuts()) {
            if (own.contains(sequence))
                taken.append(action->text() + u' ' + sequence.toString());
        }
    }
    QVERIFY(
        story->window().findChildren<QShortcut *>(QString(), Qt::FindDirectChildrenOnly).isEmpty());
    QCOMPARE(taken, QStringList());
}

void tst_ConsoleStory::editingKeysEdit()
{
    QTest::keyClicks(&console(), u"set abc"_s);
    key(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(console().getCurrentCommand() != u"set abc"_s);
    QTest::keySequence(&console(), QKeySequence::Redo);
    QCOMPARE(console().getCurrentCommand(), u"set abc"_s);
    key(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    key(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(console().getCurrentCommand(), u"set "_s);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"abc"_s);
    key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(console().getCurrentCommand(), u"set abc"_s);
    key(Qt::Key_Tab);
    key(Qt::Key_Home);
    QVERIFY(console().hasFocus());
    key(Qt::Key_A, Qt::ControlModifier);
    QVERIFY(console().textCursor().hasSelection());
    key(Qt::Key_Right);
    // The console's own search, not that of the editors.
    key(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(console().isAncestorOf(QApplication::focusWidget()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(console().hasFocus());
}

void tst_ConsoleStory::theEditMenuIsTheConsoles()
{
    QTest::keyClicks(&console(), u"set abc"_s);
    QAction *all = story->entry('e', u"Select All\tCtrl+A"_s);
    QVERIFY(all);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_A);
    story->closeMenus();
    QVERIFY(console().textCursor().selectedText().endsWith(u"set abc"_s));
    story->window().activateMode(DesignsMode::id);
    QVERIFY(story->entry('e', u"Find..."_s));
    story->closeMenus();
    story->window().activateMode(105);
}

// Two actions of one key that reach the same place are both dead.
void tst_ConsoleStory::noKeyIsTakenTwice()
{
    QHash<QKeySequence, QStringList> takers;
    const QList<QAction *> actions = story->window().findChildren<QAction *>();
    for (const QAction *action : actions) {
        const auto *owner = qobject_cast<const QWidget *>(action->parent());
        if (owner && owner == &console())
            continue;
        for (const QKeySequence &sequence : action->shortcuts()) {
            const bool everywhere = action->shortcutContext() == Qt::WindowShortcut;
            const bool inEditors = story->window().designsMode()->editorArea()->actions().contains(
                const_cast<QAction *>(action));
            if (!sequence.isEmpty() && (everywhere || inEditors))
                takers[sequence].append(action->text());
        }
    }
    for (auto taker = takers.cbegin(); taker != takers.cend(); ++taker)
        QVERIFY2(taker->size() == 1,
                 qPrintable(taker.key().toString() + u": "_s + taker->join(u", "_s)));
}

void tst_ConsoleStory::tabCompletesSubcommands_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("completed");
    QTest::newRow("sub-1 of a command") << u"designs backu"_s << u"designs backups_path"_s;
    QTest::newRow("sub-2 of the ensemble") << u"morvalen ste"_s << u"morvalen step"_s;
    QTest::newRow("sub-3 of a group") << u"morvalen step li"_s << u"morvalen step list"_s;
    QTest::newRow("sub-4 an option") << u"[morvalen files -des"_s << u"[morvalen files -design"_s;
    QTest::newRow("sub-5 of an ensemble of Tcl") << u"string reve"_s << u"string reverse"_s;
}

void tst_ConsoleStory::tabCompletesSubcommands()
{
    QFETCH(const QString, typed);
    console().replaceCurrentCommand(QString());
    QTest::keyClicks(&console(), typed);
    key(Qt::Key_Tab);
    QTEST(console().getCurrentCommand().trimmed(), "completed");
    console().replaceCurrentCommand(QString());
}

void tst_ConsoleStory::cleanupTestCase()
{
    QCOMPARE(CommandJournal::instance()->text(), QString());
    story.reset();
}

TEST_CLASS(tst_ConsoleStory)
#include "tst_ConsoleStory.moc"
