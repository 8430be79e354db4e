#include "ConsoleUnderTest.h"
#include "tests/TestClass.h"

#include <QClipboard>
#include <QDrag>
#include <QMenu>
#include <QMimeData>

using namespace Qt::Literals::StringLiterals;

// Mouse buttons, drag and drop, and the context menu.
class tst_ConsoleMouse : public QObject
{
    Q_OBJECT

private:
    // The middle of the character at a position, in the viewport.
    QPoint placeOf(int position) const
    {
        QTextCursor cursor(console->document());
        cursor.setPosition(position);
        return console->cursorRect(cursor).center() + QPoint(1, 0);
    }

    void click(Qt::MouseButton button, int position)
    {
        QTest::mouseClick(console->viewport(), button, {}, placeOf(position));
    }

    // Returns what the drop was answered with.
    Qt::DropAction drop(int position, const QString &text, Qt::DropAction proposed = Qt::CopyAction)
    {
        QMimeData data;
        data.setText(text);
        QDragEnterEvent enter(placeOf(position), Qt::CopyAction | Qt::MoveAction, &data,
                              Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(console->viewport(), &enter);
        QDropEvent event(placeOf(position), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                         Qt::NoModifier);
        event.setDropAction(proposed);
        QApplication::sendEvent(console->viewport(), &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }

    // Presses the left button on one position and drags away from there. The platform of the
    // tests ends every drag at once; what was offered is kept until the event loop runs again.
    const QDrag *drag(int from)
    {
        const QPoint start = placeOf(from);
        QTest::mousePress(console->viewport(), Qt::LeftButton, {}, start);
        moveMouse(start + QPoint(QApplication::startDragDistance() + 5, 0));
        return console->findChild<QDrag *>();
    }

    void moveMouse(const QPoint &place)
    {
        QMouseEvent move(QEvent::MouseMove, place, console->viewport()->mapToGlobal(place),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(console->viewport(), &move);
    }

    std::unique_ptr<ConsoleUnderTest> console;

private Q_SLOTS:
    void init()
    {
        console = std::make_unique<ConsoleUnderTest>();
        console->start();
        QTest::keyClicks(console.get(), u"abcd"_s); // "Welcome\n> abcd"
        QGuiApplication::clipboard()->setText(u"clip"_s);
    }

    void aPressRemembersWhereTheCursorWas_data()
    {
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::newRow("press-position-1 left") << Qt::LeftButton;
        QTest::newRow("press-position-2 middle") << Qt::MiddleButton;
        QTest::newRow("press-position-3 right") << Qt::RightButton;
    }

    void aPressRemembersWhereTheCursorWas()
    {
        QFETCH(Qt::MouseButton, button);
        console->moveTo(12);
        QTest::mousePress(console->viewport(), button, {}, placeOf(2));
        QCOMPARE(console->oldPosition, 12);
        QTest::mouseRelease(console->viewport(), button, {}, placeOf(2));
    }

    void aLeftPressMovesTheCursor()
    {
        click(Qt::LeftButton, 2);
        QCOMPARE(console->picture(), u"We|lcome\n> abcd"_s);
    }

    void aMiddlePressPastesOnceWhereItIs()
    {
        click(Qt::MiddleButton, 12);
        QCOMPARE(console->picture(), u"Welcome\n> abclip|cd"_s);
    }

    void aMiddlePressCopiesTheSelectionFirst()
    {
        console->select(0, 3);
        click(Qt::MiddleButton, 12);
        QCOMPARE(console->picture(), u"Welcome\n> abWel|cd"_s);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"Wel"_s);
    }

    void aMiddlePressOutsideTheZonePastesNothing()
    {
        click(Qt::MiddleButton, 2);
        QCOMPARE(console->picture(), u"We|lcome\n> abcd"_s);
        click(Qt::MiddleButton, 9);
        QCOMPARE(console->picture(), u"Welcome\n>| abcd"_s);
    }

    void aDragIsAcceptedOverTheZoneOnly_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("drag-move-1 output") << 3 << false;
        QTest::newRow("drag-move-2 prompt") << 9 << false;
        QTest::newRow("drag-move-3 behind the prompt") << 10 << true;
        QTest::newRow("drag-move-4 typed text") << 13 << true;
    }

    void aDragIsAcceptedOverTheZoneOnly()
    {
        QFETCH(int, position);
        QMimeData data;
        data.setText(u"x"_s);
        QDragEnterEvent enter(placeOf(position), Qt::CopyAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(console->viewport(), &enter);
        QDragMoveEvent move(placeOf(position), Qt::CopyAction, &data, Qt::LeftButton,
                            Qt::NoModifier);
        QApplication::sendEvent(console->viewport(), &move);
        QTEST(move.isAccepted(), "accepted");
        QTextCursor cursor(console->document());
        cursor.setPosition(position);
        QCOMPARE(move.answerRect(), console->cursorRect(cursor));
    }

    void aDropInTheZoneInsertsPlainText()
    {
        QCOMPARE(drop(12, u"<i>x</i>"_s), Qt::CopyAction);
        QCOMPARE(console->toPlainText(), u"Welcome\n> ab<i>x</i>cd"_s);
        QCOMPARE(coloursOf(*console), u"none:Welcome/#000000:> ab<i>x</i>cd/"_s);
    }

    void aDropOutsideInsertsNothing_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<Qt::DropAction>("proposed");
        QTest::newRow("drop-outside-1 output") << 3 << Qt::CopyAction;
        QTest::newRow("drop-outside-2 prompt") << 9 << Qt::CopyAction;
        QTest::newRow("drop-outside-3 the source keeps what it would move") << 3 << Qt::MoveAction;
    }

    void aDropOutsideInsertsNothing()
    {
        QFETCH(int, position);
        QFETCH(Qt::DropAction, proposed);
        console->select(11, 13);
        QCOMPARE(drop(position, u"x"_s, proposed), Qt::IgnoreAction);
        QCOMPARE(console->picture(), u"Welcome\n> a^bc|d"_s);
    }

    void aDropPutsACursorOutsideBackToTheLastPress()
    {
        console->moveTo(12);
        QTest::mouseClick(console->viewport(), Qt::LeftButton, {}, placeOf(3));
        drop(3, u"x"_s);
        QCOMPARE(console->picture(), u"Welcome\n> ab|cd"_s);
    }

    void whatADragOffers_data()
    {
        QTest::addColumn<int>("anchor");
        QTest::addColumn<int>("position");
        QTest::addColumn<int>("from");
        QTest::addColumn<Qt::DropActions>("actions");
        QTest::addColumn<QString>("text");
        const Qt::DropActions copy = Qt::CopyAction;
        QTest::newRow("drag-copy-1 output") << 0 << 3 << 1 << copy << u"Wel"_s;
        QTest::newRow("drag-copy-2 output, backwards") << 3 << 0 << 1 << copy << u"Wel"_s;
        QTest::newRow("drag-copy-3 with the prompt in it") << 9 << 12 << 11 << copy << u" ab"_s;
        QTest::newRow("drag-move-1 typed text may be moved")
            << 10 << 12 << 11 << (copy | Qt::MoveAction) << u"ab"_s;
    }

    void whatADragOffers()
    {
        QFETCH(int, anchor);
        QFETCH(int, position);
        QFETCH(int, from);
        console->select(anchor, position);
        const QString before = console->picture();
        const QDrag *offered = drag(from);
        QVERIFY(offered);
        QTEST(offered->supportedActions(), "actions");
        QTEST(offered->mimeData()->text(), "text");
        QCOMPARE(console->picture(), before);
    }

    void aSmallMovementIsNoDrag()
    {
        console->select(0, 3);
        QTest::mousePress(console->viewport(), Qt::LeftButton, {}, placeOf(1));
        moveMouse(placeOf(1) + QPoint(1, 1));
        QVERIFY(!console->findChild<QDrag *>());
        QTest::mouseRelease(console->viewport(), Qt::LeftButton, {}, placeOf(1));
        QCOMPARE(console->picture(), u"W|elcome\n> abcd"_s);
    }

    void afterADragTheMouseSelectsAgain()
    {
        console->select(0, 3);
        QVERIFY(drag(1));
        console->moveTo(0);
        QTest::mousePress(console->viewport(), Qt::LeftButton, {}, placeOf(1));
        moveMouse(placeOf(6));
        QTest::mouseRelease(console->viewport(), Qt::LeftButton, {}, placeOf(6));
        QCOMPARE(console->picture(), u"W^elcom|e\n> abcd"_s);
    }

    void aClickOnSelectedOutputClearsTheSelection()
    {
        console->select(0, 5);
        click(Qt::LeftButton, 2);
        QCOMPARE(console->picture(), u"We|lcome\n> abcd"_s);
    }

    void menuEntries()
    {
        QStringList entries;
        openMenu([&](QMenu *menu) {
            for (const QAction *action : menu->actions()) {
                entries += action->isSeparator()
                    ? u"-"_s
                    : action->text() + u' ' + action->shortcut().toString()
                        + (action->isEnabled() ? u""_s : u" disabled"_s)
                        + (action->parent() == console.get() ? u""_s : u" not the console's"_s);
            }
            menu->close();
        });
        QCOMPARE(entries,
                 QStringList({u"Undo Ctrl+Z"_s, u"Redo Ctrl+Y"_s, u"-"_s, u"Cut Ctrl+X"_s,
                              u"Copy Ctrl+Ins"_s, u"Paste Ctrl+V"_s, u"Delete Del"_s, u"-"_s,
                              u"Select All Ctrl+A"_s}));
    }

    void theMenuGoesAndItsActionsStay()
    {
        const auto actionsBefore = console->findChildren<QAction *>(Qt::FindDirectChildrenOnly);
        QPointer<QMenu> opened;
        openMenu([&](QMenu *menu) {
            opened = menu;
            menu->close();
        });
        QVERIFY(!opened);
        const auto actions = console->findChildren<QAction *>(Qt::FindDirectChildrenOnly);
        QCOMPARE(actions.size(), actionsBefore.size() + 7);
    }

    void menuActions_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<int>("anchor");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("after");
        QTest::newRow("menu-undo-1") << u"Undo"_s << 14 << 14 << u"Welcome\n> |"_s;
        QTest::newRow("menu-cut-1 zone") << u"Cut"_s << 11 << 13 << u"Welcome\n> a|d"_s;
        QTest::newRow("menu-cut-2 output") << u"Cut"_s << 1 << 3 << u"W^el|come\n> abcd"_s;
        QTest::newRow("menu-copy-1") << u"Copy"_s << 11 << 13 << u"Welcome\n> a^bc|d"_s;
        QTest::newRow("menu-paste-1 zone") << u"Paste"_s << 12 << 12 << u"Welcome\n> abclip|cd"_s;
        QTest::newRow("menu-paste-2 output") << u"Paste"_s << 3 << 3 << u"Wel|come\n> abcd"_s;
        QTest::newRow("menu-delete-1 zone") << u"Delete"_s << 11 << 11 << u"Welcome\n> a|cd"_s;
        QTest::newRow("menu-delete-2 output") << u"Delete"_s << 3 << 3 << u"Wel|come\n> abcd"_s;
        QTest::newRow("menu-select-1") << u"Select All"_s << 3 << 3 << u"^Welcome\n> abcd|"_s;
    }

    void menuActions()
    {
        QFETCH(QString, entry);
        QFETCH(int, anchor);
        QFETCH(int, position);
        console->select(anchor, position);
        trigger(entry);
        QTEST(console->picture(), "after");
    }

    void menuRedo()
    {
        trigger(u"Undo"_s);
        trigger(u"Redo"_s);
        QCOMPARE(console->picture(), u"Welcome\n> abcd|"_s);
    }

private:
    template <typename Use>
    void openMenu(Use use)
    {
        QTimer::singleShot(0, this, [use] {
            if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget()))
                use(menu);
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, placeOf(3),
                                console->viewport()->mapToGlobal(placeOf(3)));
        QApplication::sendEvent(console->viewport(), &event);
    }

    void trigger(const QString &entry)
    {
        openMenu([&entry](QMenu *menu) {
            for (QAction *action : menu->actions()) {
                if (action->text() == entry)
                    action->trigger();
            }
            menu->close();
        });
    }
};

TEST_CLASS(tst_ConsoleMouse)
#include "tst_ConsoleMouse.moc"
