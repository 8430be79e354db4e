#include "app/editor/EditorArea.h"
#include "app/editor/NoticeBar.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"
#include "app/editor/WindowEditorManager.h"
#include "tests/app/editor/files.h"
#include "tests/fakes/FakeHost.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

class tst_WindowEditorManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFileIsOpened();
    void inTheBackgroundNothingMoves();
    void aFileHasOnePage_data();
    void aFileHasOnePage();
    void refusalsAreTold_data();
    void refusalsAreTold();
    void aReasonThatNobodyWantsIsLogged();
    void noAreaIsLeft();

    void readOnlyAsAsked();
    void whatWasTypedStaysChangeable();
    void componentFilesAreLeftAlone();
    void aDesignOpensWhileItsFileIsEdited();
    void filesOfReadOnlyDesigns();

private:
    TextPage *open(const QString &path, bool readOnly = false);
    static QString notice(const TextPage *page) { return page->findChild<NoticeBar *>()->text(); }

    std::unique_ptr<FakeHost> host;
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<EditorArea> area;
    std::unique_ptr<WindowEditorManager> manager;
    QString path;
    QString error;
};

void tst_WindowEditorManager::init()
{
    host = std::make_unique<FakeHost>();
    folder = std::make_unique<QTemporaryDir>();
    area = std::make_unique<EditorArea>();
    manager = std::make_unique<WindowEditorManager>(area.get());
    path = QDir(folder->path()).canonicalPath() + u"/top.v"_s;
    QVERIFY(files::write(path, "module top;\n"));
    error.clear();
}

void tst_WindowEditorManager::cleanup()
{
    manager.reset();
    area.reset();
    host.reset();
}

TextPage *tst_WindowEditorManager::open(const QString &opened, bool readOnly)
{
    return static_cast<TextPage *>(
        manager->createEditorForPath(opened, &error, QString(), true, readOnly));
}

void tst_WindowEditorManager::aFileIsOpened()
{
    QSignalSpy raised(manager.get(), &WindowEditorManager::bringUpRequested);
    const TextPage *page = open(path);
    QVERIFY2(page, qPrintable(error));
    QCOMPARE(area->currentPage(), page);
    QCOMPARE(area->tabText(0), u"top.v"_s);
    QCOMPARE(area->tabToolTip(0), path);
    QCOMPARE(page->textEdit()->toPlainText(), u"module top;\n"_s);
    QVERIFY(!page->textEdit()->isReadOnly());
    QCOMPARE(raised.size(), 1);
}

void tst_WindowEditorManager::inTheBackgroundNothingMoves()
{
    const TextPage *first = open(path);
    const QString other = path + u".txt"_s;
    QVERIFY(files::write(other, "x"));
    QSignalSpy raised(manager.get(), &WindowEditorManager::bringUpRequested);
    QVERIFY(manager->createEditorForPath(other, &error, u"text"_s, false, false));
    QCOMPARE(area->count(), 2);
    QCOMPARE(area->currentPage(), first);
    QCOMPARE(raised.size(), 0);
}

void tst_WindowEditorManager::aFileHasOnePage_data()
{
    QTest::addColumn<QString>("other");
    QTest::newRow("one-1 the same path") << u"top.v"_s;
    QTest::newRow("one-2 a path with detours") << u"./sub/../top.v"_s;
    QTest::newRow("one-3 a link") << u"link.v"_s;
    QTest::newRow("one-4 a folder that is a link") << u"linked/top.v"_s;
}

void tst_WindowEditorManager::aFileHasOnePage()
{
    QFETCH(const QString, other);
    const QDir dir(folder->path());
    QVERIFY(dir.mkdir(u"sub"_s));
    QVERIFY(QFile::link(path, dir.filePath(u"link.v"_s)));
    QVERIFY(QFile::link(dir.path(), dir.filePath(u"linked"_s)));
    const TextPage *page = open(path);
    QVERIFY(page);
    QCOMPARE(open(dir.path() + u'/' + other), page);
    QCOMPARE(area->count(), 1);
}

void tst_WindowEditorManager::refusalsAreTold_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("reason");
    const QString cannot = u"Cannot open \"%1\": "_s;
    QTest::newRow("refuse-1 missing")
        << u"missing.v"_s << QString() << cannot + u"No such file or directory"_s;
    QTest::newRow("refuse-2 a folder") << u"."_s << QString() << cannot + u"it is a folder"_s;
    QTest::newRow("refuse-3 no name")
        << QString() << QString() << u"Cannot open \"\": No such file or directory"_s;
    QTest::newRow("refuse-4 a zero byte")
        << u"top.v\0/x"_s << QString() << cannot + u"that is not the name of a file"_s;
    QTest::newRow("refuse-5 an unknown editor")
        << u"top.v"_s << u"hex"_s << u"There is no editor \"hex\""_s;
}

void tst_WindowEditorManager::refusalsAreTold()
{
    QFETCH(const QString, name);
    QFETCH(const QString, mode);
    QFETCH(const QString, reason);
    const QString refused = name.isEmpty() ? name : folder->filePath(name);
    QCOMPARE(manager->createEditorForPath(refused, &error, mode, true, false), nullptr);
    QString named = refused;
    if (name == u"."_s)
        named = QDir(folder->path()).canonicalPath();
    QCOMPARE(error, QString(reason).replace(u"%1"_s, named));
    QCOMPARE(area->count(), 0);
}

// As the command that opens the active file asks.
void tst_WindowEditorManager::aReasonThatNobodyWantsIsLogged()
{
    QVERIFY(!manager->createEditorForPath(u"/missing.v"_s, nullptr, QString(), true, false));
    QCOMPARE(host->journal.take(),
             QStringList {u"logger.logMessage(, 4, Cannot open \"/missing.v\": No such file or "
                          "directory, -, -, -)"_s});
}

void tst_WindowEditorManager::noAreaIsLeft()
{
    area.reset();
    QVERIFY(!open(path));
    QCOMPARE(error, u"There is no window to open \"%1\" in"_s.arg(path));
}

void tst_WindowEditorManager::readOnlyAsAsked()
{
    const TextPage *page = open(path, true);
    QVERIFY(page->textEdit()->isReadOnly());
    QCOMPARE(notice(page), u"Read-only: it was opened for reading."_s);
    QTest::keyClicks(page->textEdit(), u"x"_s);
    QVERIFY(!page->isModified());
    open(path, false);
    QVERIFY(!page->textEdit()->isReadOnly());
    QCOMPARE(notice(page), QString());
}

void tst_WindowEditorManager::whatWasTypedStaysChangeable()
{
    TextPage *page = open(path);
    QTest::keyClicks(page->textEdit(), u"x"_s);
    open(path, true);
    QVERIFY(!page->textEdit()->isReadOnly());
    QVERIFY(page->save().toErrorText(&error));
}

void tst_WindowEditorManager::componentFilesAreLeftAlone()
{
    FakeDesign *design = host->designs.openDesign(u"uart"_s);
    design->componentFile = path;
    const TextPage *page = open(path);
    QVERIFY(page->textEdit()->isReadOnly());
    QCOMPARE(notice(page),
             u"Read-only: it is the component file of the design \"uart\", which is open."_s);
    host->designs.open.removeOne(design);
    Q_EMIT host->designs.designClosed(design->id(u"."_s));
    QTRY_VERIFY(!page->textEdit()->isReadOnly());
    QCOMPARE(notice(page), QString());
    delete design;
}

void tst_WindowEditorManager::aDesignOpensWhileItsFileIsEdited()
{
    TextPage *page = open(path);
    QTest::keyClicks(page->textEdit(), u"x"_s);
    FakeDesign *design = host->designs.openDesign(u"uart"_s);
    design->componentFile = path;
    Q_EMIT host->designs.designAttached(design->id(u"."_s));
    QTRY_VERIFY(page->textEdit()->isReadOnly());
    QVERIFY(!page->save().toErrorText(&error));
    QCOMPARE(error,
             u"Cannot write \"%1\": it is the component file of the design \"uart\", which is "
             "open"_s.arg(path));
    QVERIFY(page->isModified());
    QCOMPARE(files::read(path), QByteArray("module top;\n"));
    QCOMPARE(page->textEdit()->toPlainText(), u"xmodule top;\n"_s);
}

void tst_WindowEditorManager::filesOfReadOnlyDesigns()
{
    FakeDesign *design = host->designs.openDesign(u"uart"_s);
    design->file(path);
    design->readOnly = true;
    const TextPage *page = open(path);
    QVERIFY(page->textEdit()->isReadOnly());
    QCOMPARE(notice(page), u"Read-only: it belongs to the design \"uart\", which is read-only."_s);
    design->readOnly = false;
    Q_EMIT host->designs.designChanged(design->id(u"."_s));
    QTRY_VERIFY(!page->textEdit()->isReadOnly());
}

TEST_CLASS(tst_WindowEditorManager)
#include "tst_WindowEditorManager.moc"
