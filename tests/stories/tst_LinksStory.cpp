// From what names a line, elsewhere than in logs and issues, to the line.

#include "app/DesignsMode.h"
#include "app/editor/DifferenceDialog.h"
#include "app/editor/EditorArea.h"
#include "app/editor/NoticeBar.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"
#include "app/help/ManualBrowser.h"
#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;

class tst_LinksStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }

    void theManualLeadsThere();
    void theDifferenceLeadsThere_data();
    void theDifferenceLeadsThere();

private:
    EditorArea *area() const { return story->window().designsMode()->editorArea(); }
    // The text in front, with the line of the cursor.
    QString place() const;
    template <typename Edit>
    static void click(Edit *edit, const QString &text);

    std::unique_ptr<Story> story;
};

QString tst_LinksStory::place() const
{
    const auto *page = qobject_cast<TextPage *>(area()->currentPage());
    if (!page)
        return {};
    return u"%1:%2"_s.arg(page->title()).arg(page->textEdit()->textCursor().blockNumber() + 1);
}

template <typename Edit>
void tst_LinksStory::click(Edit *edit, const QString &text)
{
    QTextCursor found = edit->document()->find(text);
    QVERIFY2(!found.isNull(), qPrintable(edit->toPlainText()));
    found.setPosition(found.selectionStart() + 2);
    QTRY_VERIFY(edit->viewport()->rect().contains(edit->cursorRect(found).center()));
    QTest::mouseClick(edit->viewport(), Qt::LeftButton, {}, edit->cursorRect(found).center());
}

// Such as a page that somebody has added.
void tst_LinksStory::theManualLeadsThere()
{
    Story::write(story->path(u"top.v"_s), "1\n2\n3\n4\n");
    QTest::keyClick(&story->console(), Qt::Key_F1);
    auto *manual = story->find<ManualBrowser>("manualBrowser");
    QVERIFY(manual && manual->isVisible());
    const QString named = story->path(u"top.v"_s) + u":3:1"_s;
    manual->setMarkdown(u"Verilator said `%1: syntax error`"_s.arg(named));
    click(manual, named);
    QTRY_COMPARE(place(), u"top.v:3"_s);
    area()->closeAll();
    story->press(Qt::Key_F1);
}

void tst_LinksStory::theDifferenceLeadsThere_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("difference-1 click") << true;
    QTest::newRow("difference-2 Return") << false;
}

void tst_LinksStory::theDifferenceLeadsThere()
{
    QFETCH(const bool, byMouse);
    const QString path = story->path(u"notes.txt"_s);
    Story::write(path, "1\n2\n3\n4\n5\n6\n7\n8\n9\n");
    story->window().openFiles({path});
    auto *page = qobject_cast<TextPage *>(area()->currentPage());
    QVERIFY(page);
    page->goTo({16, 0});
    QTest::keyClicks(page->textEdit(), u"mine"_s);
    page->goTo({0, 0});
    Story::write(path, "1\n2\n3\n4\n5\n6\n7\n8\n9\nten\n");
    const auto *notice = page->findChild<NoticeBar *>();
    QTRY_VERIFY(notice->isVisible());
    for (auto *button : notice->findChildren<QAbstractButton *>()) {
        if (button->text().remove(u'&') == u"Show Difference"_s)
            QTest::mouseClick(button, Qt::LeftButton);
    }
    auto *dialog = page->findChild<DifferenceDialog *>();
    QVERIFY(dialog);
    auto *difference = dialog->findChild<QPlainTextEdit *>();
    QCOMPARE(place(), u"notes.txt:1"_s);
    if (byMouse) {
        click(difference, u"@@ -6"_s);
    } else {
        difference->setTextCursor(difference->document()->find(u"@@ -6"_s));
        QTest::keyClick(difference, Qt::Key_Return);
    }
    QTRY_COMPARE(place(), u"notes.txt:6"_s);
    dialog->reject();
    const DialogVisits discard({[](QDialog *asked) { DialogVisits::press(asked, u"Discard"_s); }});
    area()->closeAll();
}

TEST_CLASS(tst_LinksStory)
#include "tst_LinksStory.moc"
