#include "app/editor/EditorArea.h"
#include "tests/app/editor/DialogAnswer.h"
#include "tests/app/editor/FakePage.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;

class tst_EditorClosing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void oneIsAskedAbout_data();
    void oneIsAskedAbout();
    void severalAreAskedAboutOnce_data();
    void severalAreAskedAboutOnce();
    void manyAreNotAllNamed();
    void whatCannotBeSavedStays();
    void aSilentRefusalStays();
    void othersAreClosed();

private:
    FakePage *add(const QString &name)
    {
        return static_cast<FakePage *>(area->addPage(new FakePage(name)));
    }
    QStringList titles() const;

    std::unique_ptr<EditorArea> area;
};

void tst_EditorClosing::init()
{
    area = std::make_unique<EditorArea>();
    area->resize(600, 400);
    area->show();
    QVERIFY(QTest::qWaitForWindowActive(area.get(), patient()));
}

void tst_EditorClosing::cleanup() { area.reset(); }

QStringList tst_EditorClosing::titles() const
{
    QStringList all;
    for (int index = 0; index < area->count(); ++index)
        all.append(area->tabText(index));
    return all;
}

void tst_EditorClosing::oneIsAskedAbout_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("saves");
    QTest::addColumn<bool>("closed");
    QTest::newRow("ask-1 save") << int(QMessageBox::Save) << 1 << true;
    QTest::newRow("ask-2 discard") << int(QMessageBox::Discard) << 0 << true;
    QTest::newRow("ask-3 cancel") << int(QMessageBox::Cancel) << 0 << false;
}

void tst_EditorClosing::oneIsAskedAbout()
{
    QFETCH(const int, button);
    QFETCH(const int, saves);
    QFETCH(const bool, closed);
    FakePage *page = add(u"top.v"_s)->setModified(true);
    add(u"other.v"_s);
    DialogAnswer answer {QMessageBox::StandardButton(button)};
    QCOMPARE(area->closePage(page), closed);
    QCOMPARE(answer.said,
             u"Unsaved Changes\n\"top.v\" has changes that are not saved.\n"
             "Without saving, they are lost.\nSave Cancel Discard"_s);
    QCOMPARE(page->saves, saves);
    QCOMPARE(area->count(), closed ? 1 : 2);
    // The user sees what the question is about.
    if (!closed)
        QCOMPARE(area->currentPage(), page);
}

void tst_EditorClosing::severalAreAskedAboutOnce_data() { oneIsAskedAbout_data(); }

void tst_EditorClosing::severalAreAskedAboutOnce()
{
    QFETCH(const int, button);
    QFETCH(const int, saves);
    QFETCH(const bool, closed);
    FakePage *first = add(u"a.v"_s)->setModified(true);
    add(u"b.v"_s);
    FakePage *third = add(u"c.v"_s)->setModified(true);
    DialogAnswer answer {QMessageBox::StandardButton(button)};
    QCOMPARE(area->closeAll(), closed);
    QCOMPARE(answer.said,
             u"Unsaved Changes\n2 files have changes that are not saved.\na.v\nc.v\n\n"
             "Without saving, the changes are lost.\n&Save All Cancel &Discard All"_s);
    QCOMPARE(first->saves, saves);
    QCOMPARE(third->saves, saves);
    QCOMPARE(area->count(), closed ? 0 : 3);
}

void tst_EditorClosing::manyAreNotAllNamed()
{
    for (int number = 1; number <= 15; ++number)
        add(u"f%1"_s.arg(number))->setModified(true);
    DialogAnswer answer {QMessageBox::Discard};
    QVERIFY(area->closeAll());
    QCOMPARE(answer.said,
             u"Unsaved Changes\n15 files have changes that are not saved.\n"
             "f1\nf2\nf3\nf4\nf5\nf6\nf7\nf8\nf9\nf10\nf11\nf12\nand 3 more\n\n"
             "Without saving, the changes are lost.\n&Save All Cancel &Discard All"_s);
}

void tst_EditorClosing::whatCannotBeSavedStays()
{
    FakePage *page = add(u"top.v"_s)->setModified(true);
    page->refuses = true;
    page->problem = u"Cannot write \"top.v\": No space left on device"_s;
    add(u"other.v"_s);
    DialogAnswer question {QMessageBox::Save};
    std::unique_ptr<DialogAnswer> warning;
    // The second box comes when the first has been answered.
    QTimer::singleShot(0, &question, [&] {
        QTRY_VERIFY(!question.said.isEmpty());
        warning = std::make_unique<DialogAnswer>(QMessageBox::Ok);
    });
    QVERIFY(!area->closeAll());
    QVERIFY(warning);
    QCOMPARE(warning->said, u"Not Saved\nCannot write \"top.v\": No space left on device\nOK"_s);
    QCOMPARE(titles(), (QStringList {u"top.v*"_s, u"other.v"_s}));
    QCOMPARE(area->currentPage(), page);
}

void tst_EditorClosing::aSilentRefusalStays()
{
    FakePage *page = add(u"top.v"_s)->setModified(true);
    page->refuses = true;
    QVERIFY(!area->savePage(page));
    QVERIFY(!area->saveAll());
    QCOMPARE(titles(), QStringList {u"top.v*"_s});
}

void tst_EditorClosing::othersAreClosed()
{
    add(u"a"_s);
    FakePage *b = add(u"b"_s)->setModified(true);
    add(u"c"_s);
    QVERIFY(area->closeOthers(b));
    QCOMPARE(titles(), QStringList {u"b*"_s});
}

TEST_CLASS(tst_EditorClosing)
#include "tst_EditorClosing.moc"
