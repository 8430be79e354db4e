#include "app/editor/EditorActions.h"
#include "app/editor/EditorArea.h"
#include "tests/app/editor/FakePage.h"
#include "tests/TestClass.h"

#include <QApplication>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_EditorActions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void actionsFollowThePage();
    void actionsSave();
    void actionsRunOnThePage_data();
    void actionsRunOnThePage();

private:
    FakePage *add(const QString &name)
    {
        return static_cast<FakePage *>(area->addPage(new FakePage(name)));
    }
    template <class Command>
    QAction *action(Command command) const
    {
        return area->editorActions()->action(command);
    }

    std::unique_ptr<EditorArea> area;
};

void tst_EditorActions::init()
{
    area = std::make_unique<EditorArea>();
    area->resize(600, 400);
    area->show();
    QVERIFY(QTest::qWaitForWindowActive(area.get(), patient()));
}

void tst_EditorActions::cleanup() { area.reset(); }

void tst_EditorActions::actionsFollowThePage()
{
    for (int i = EditorActions::Save; i <= EditorActions::PreviousPage; ++i)
        QVERIFY(!action(EditorActions::PagesCommand(i))->isEnabled());
    for (int i = EditorPage::SaveCopy; i <= EditorPage::ChooseCoding; ++i)
        QVERIFY(!action(EditorPage::Command(i))->isEnabled());
    FakePage *page = add(u"a"_s);
    QVERIFY(action(EditorActions::Close)->isEnabled());
    QVERIFY(!action(EditorActions::NextPage)->isEnabled());
    QVERIFY(!action(EditorActions::Save)->isEnabled());
    page->setModified(true);
    QVERIFY(action(EditorActions::Save)->isEnabled());
    QVERIFY(!action(EditorPage::Undo)->isEnabled());
    page->able = EditorPage::Undo;
    Q_EMIT page->commandsChanged();
    QVERIFY(action(EditorPage::Undo)->isEnabled());
    add(u"b"_s);
    QVERIFY(!action(EditorPage::Undo)->isEnabled());
    QVERIFY(!action(EditorActions::Save)->isEnabled());
    QVERIFY(action(EditorActions::SaveAll)->isEnabled());
    QVERIFY(action(EditorActions::CloseOthers)->isEnabled());
}

void tst_EditorActions::actionsSave()
{
    FakePage *a = add(u"a"_s)->setModified(true);
    FakePage *b = add(u"b"_s)->setModified(true);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(b->saves, 1);
    QCOMPARE(a->saves, 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S,
                    Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(b->saves, 1);
    QCOMPARE(a->saves, 1);
}

void tst_EditorActions::actionsRunOnThePage_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("keys");
    const auto row = [](const char *name, EditorPage::Command command, const QString &text,
                        const QString &keys) {
        QTest::newRow(name) << int(command) << text << keys;
    };
    row("act-1 copy of the file", EditorPage::SaveCopy, u"Save a Cop&y..."_s, QString());
    row("act-2 undo", EditorPage::Undo, u"&Undo"_s, u"Ctrl+Z"_s);
    row("act-3 redo", EditorPage::Redo, u"&Redo"_s, u"Ctrl+Y Ctrl+Shift+Z"_s);
    row("act-4 cut", EditorPage::Cut, u"Cu&t"_s, u"Ctrl+X"_s);
    row("act-5 copy", EditorPage::Copy, u"&Copy"_s, u"Ctrl+C"_s);
    row("act-6 paste", EditorPage::Paste, u"&Paste"_s, u"Ctrl+V"_s);
    row("act-7 all", EditorPage::SelectAll, u"Select &All"_s, u"Ctrl+A"_s);
    row("act-8 find", EditorPage::Find, u"&Find..."_s, u"Ctrl+F"_s);
    row("act-9 next", EditorPage::FindNext, u"Find &Next"_s, u"F3"_s);
    row("act-10 previous", EditorPage::FindPrevious, u"Find Pre&vious"_s, u"Shift+F3"_s);
    row("act-11 replace", EditorPage::Replace, u"R&eplace..."_s, u"Ctrl+H Ctrl+R"_s);
    row("act-12 line", EditorPage::GoToLine, u"&Go to Line..."_s, u"Ctrl+L Ctrl+G"_s);
    row("act-13 comment", EditorPage::ToggleComment, u"Toggle Co&mment"_s, u"Ctrl+/"_s);
    row("act-14 larger", EditorPage::ZoomIn, u"&Larger Text"_s, u"Ctrl++ Ctrl+="_s);
    row("act-15 smaller", EditorPage::ZoomOut, u"S&maller Text"_s, u"Ctrl+-"_s);
    row("act-16 usual size", EditorPage::ZoomReset, u"&Usual Size of Text"_s, u"Ctrl+0"_s);
    row("act-17 split", EditorPage::SplitView, u"Spl&it or Join"_s, u"Ctrl+\\"_s);
    row("act-18 coding", EditorPage::ChooseCoding, u"Co&ding..."_s, QString());
}

void tst_EditorActions::actionsRunOnThePage()
{
    QFETCH(const int, command);
    QFETCH(const QString, text);
    QFETCH(const QString, keys);
    FakePage *page = add(u"a"_s);
    page->able = command;
    Q_EMIT page->commandsChanged();
    QAction *tested = action(EditorPage::Command(command));
    QCOMPARE(tested->text(), text);
    QStringList shortcuts;
    for (const QKeySequence &sequence : tested->shortcuts())
        shortcuts.append(sequence.toString());
    QCOMPARE(shortcuts.join(u' '), keys);
    QVERIFY(tested->isEnabled());
    tested->trigger();
    QCOMPARE(page->ran, QList<EditorPage::Command> {EditorPage::Command(command)});
}

TEST_CLASS(tst_EditorActions)
#include "tst_EditorActions.moc"
