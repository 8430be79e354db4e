#include "app/designs/PropertyDialog.h"
#include "app/designs/SharedPropertiesDialog.h"
#include "tests/app/designs/Answer.h"
#include "tests/app/designs/DesignTreeFixture.h"
#include "tests/TestClass.h"

#include <Qtilities/ObjectManager.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMimeData>
#include <QTreeWidget>
#include <QUrl>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignFile;
using MorvalenCore::DesignFolder;
using MorvalenCore::DesignProperty;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::ObjectManager;

// What users add to designs: by menus, by dropping files, by dialogs.
class tst_Adding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { fixture.reset(); }

    void dropsFiles_data();
    void dropsFiles();
    void dropsFolders();
    void refusesDrops_data();
    void refusesDrops();
    void tellsWhatADesignDoesNotTake();
    void addsFilesByADialog();
    void addsANewFile();
    void makesNoNewFileThatIsRefused();
    void addsAProperty();
    void asksForAValueOfTheType();
    void changesSharedProperties();
    void closesSharedPropertiesWithTheirItem();

private:
    QString in(const QString &name) const { return uart->workingFolderPath() + u'/' + name; }
    QString write(const QString &name) const
    {
        SessionFixture::write(in(name), "1");
        return in(name);
    }
    QModelIndex row(const QStringList &path) const
    {
        return fixture->row(QStringList {u"uart"_s} + path);
    }
    // What the view says of files that come over a row; they are dropped when it takes them.
    bool drop(const QModelIndex &index, const QList<QUrl> &urls);
    // The files with their nodes.
    QStringList files() const
    {
        QStringList all;
        for (const DesignFile *file : uart->filesUnderNode(QString(), true))
            all.append(file->node() + u": "_s + file->fileName());
        return all;
    }
    static void typePath(QDialog *dialog, const QString &path)
    {
        auto *line = dialog->findChild<QLineEdit *>(u"fileNameEdit"_s);
        line->setText(path);
        QTest::keyClick(line, Qt::Key_Return);
    }

    std::optional<DesignTreeFixture> fixture;
    IDesign *uart = nullptr;
};

void tst_Adding::init()
{
    fixture.emplace();
    QVERIFY(fixture->shown);
    uart = fixture->session.create(u"uart"_s, u"Hardware Design"_s, u"Hardware"_s);
    QVERIFY(uart->addFile(write(u"rtl/a.v"_s), QString(), true, nullptr));
    QVERIFY(uart->addProperty(u"p"_s, {}, 1, false, nullptr));
    QVERIFY(fixture->follow());
}

bool tst_Adding::drop(const QModelIndex &index, const QList<QUrl> &urls)
{
    QMimeData data;
    data.setUrls(urls);
    QWidget *viewport = fixture->view()->viewport();
    const QPoint place =
        index.isValid() ? fixture->centre(index) : viewport->rect().bottomRight() - QPoint(5, 5);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &enter);
    QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &move);
    if (!enter.isAccepted() || !move.isAccepted())
        return false;
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &drop);
    return true;
}

void tst_Adding::dropsFiles_data()
{
    QTest::addColumn<QStringList>("on");
    QTest::addColumn<QString>("node");
    QTest::newRow("drop-1 on a design") << QStringList() << u"rtl"_s;
    QTest::newRow("drop-2 on all files") << QStringList {u"Files"_s} << u"rtl"_s;
    QTest::newRow("drop-3 on a node") << QStringList {u"Files"_s, u"testbench"_s} << u"testbench"_s;
    QTest::newRow("drop-4 on a file") << QStringList {u"Files"_s, u"rtl"_s, u"a.v"_s} << u"rtl"_s;
}

void tst_Adding::dropsFiles()
{
    QFETCH(const QStringList, on);
    QFETCH(const QString, node);
    const QString path = write(u"new.v"_s);
    QVERIFY(drop(row(on), {QUrl::fromLocalFile(path)}));
    QVERIFY(files().contains(node + u": new.v"_s));
    QVERIFY(QFile::exists(path));
}

void tst_Adding::dropsFolders()
{
    QVERIFY(QDir().mkpath(in(u"ip"_s)));
    QVERIFY(
        drop(row({}), {QUrl::fromLocalFile(in(u"ip"_s)), QUrl::fromLocalFile(write(u"b.v"_s))}));
    QVERIFY(uart->folderByActualPath(in(u"ip"_s)));
    QVERIFY(files().contains(u"rtl: b.v"_s));
}

void tst_Adding::refusesDrops_data()
{
    QTest::addColumn<QStringList>("on");
    QTest::addColumn<QUrl>("url");
    QTest::addColumn<bool>("readOnly");
    const QUrl file = QUrl::fromLocalFile(u"/etc/passwd"_s);
    QTest::newRow("refuse-1 properties") << QStringList {u"Properties"_s} << file << false;
    QTest::newRow("refuse-2 another machine's")
        << QStringList {u"Files"_s} << QUrl(u"https://example.org/a.v"_s) << false;
    QTest::newRow("refuse-3 read-only design") << QStringList {u"Files"_s} << file << true;
    QTest::newRow("refuse-4 nothing below") << QStringList {u"none"_s} << file << false;
}

void tst_Adding::refusesDrops()
{
    QFETCH(const QStringList, on);
    QFETCH(const QUrl, url);
    QFETCH(const bool, readOnly);
    uart->setReadOnly(readOnly);
    QVERIFY(fixture->follow());
    QVERIFY(!drop(row(on), {url}));
    QCOMPARE(files().size(), 1);
}

void tst_Adding::tellsWhatADesignDoesNotTake()
{
    QVERIFY(drop(row({}),
                 {QUrl::fromLocalFile(in(u"rtl/a.v"_s)), QUrl::fromLocalFile(in(u"gone.v"_s)),
                  QUrl::fromLocalFile(write(u"b.v"_s))}));
    QCOMPARE(files().size(), 2);
    const auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    QVERIFY(box);
    QCOMPARE(box->text(),
             u"The design \"uart\" has the file \"%1\" already\nThere is no \"%2\""_s.arg(
                 in(u"rtl/a.v"_s), in(u"gone.v"_s)));
}

void tst_Adding::addsFilesByADialog()
{
    write(u"testbench/t1.v"_s);
    write(u"testbench/t2.v"_s);
    const Answer answer([](QDialog *dialog) {
        QCOMPARE(qobject_cast<QFileDialog *>(dialog)->directory().dirName(), u"testbench"_s);
        typePath(dialog, u"\"t1.v\" \"t2.v\""_s);
    });
    fixture->select(row({u"Files"_s, u"testbench"_s}));
    QTest::keyClick(fixture->view(), Qt::Key_Insert);
    QVERIFY(answer.isGiven());
    QCOMPARE(files(), (QStringList {u"rtl: a.v"_s, u"testbench: t1.v"_s, u"testbench: t2.v"_s}));
}

void tst_Adding::addsANewFile()
{
    const QString path = in(u"rtl/fresh.v"_s);
    const Answer answer([&path](QDialog *dialog) { typePath(dialog, path); });
    QVERIFY(DesignTreeFixture::choose(fixture->menu(row({u"Files"_s, u"rtl"_s})),
                                      u"Add New File..."_s));
    QVERIFY(QFile::exists(path));
    QVERIFY(files().contains(u"rtl: fresh.v"_s));
    QCOMPARE(fixture->editors.opened, QStringList {path});
}

// What lies there keeps its contents, also when the design has it already.
void tst_Adding::makesNoNewFileThatIsRefused()
{
    const QString path = in(u"rtl/a.v"_s);
    {
        const Answer answer([&path](QDialog *dialog) { typePath(dialog, path); });
        QVERIFY(DesignTreeFixture::choose(fixture->menu(row({u"Files"_s, u"rtl"_s})),
                                          u"Add New File..."_s));
    }
    QCOMPARE(SessionFixture::read(path), "1");
    QVERIFY(qobject_cast<QMessageBox *>(QApplication::activeModalWidget()));
    QCOMPARE(fixture->editors.opened, QStringList());
}

void tst_Adding::addsAProperty()
{
    const Answer answer([](QDialog *dialog) {
        const QList<QLineEdit *> lines = dialog->findChildren<QLineEdit *>();
        QTest::keyClicks(lines[0], u"width"_s);
        QTest::keyClicks(dialog->findChild<QComboBox *>(), u"i"_s);
        QTest::keyClicks(lines[1], u"16"_s);
        QTest::keyClicks(lines[2], u"HDL::Sizes"_s);
        Answer::press(dialog, u"OK"_s);
    });
    QVERIFY(DesignTreeFixture::choose(fixture->menu(row({u"Properties"_s})), u"Add Property..."_s));
    const DesignProperty *property = uart->propertyByName(u"width"_s);
    QVERIFY(property);
    QCOMPARE(property->propertyData().value(), QVariant(16));
    QCOMPARE(property->category().toString(u"::"_s), u"HDL::Sizes"_s);
}

void tst_Adding::asksForAValueOfTheType()
{
    PropertyDialog dialog(PropertyDialog::SharedProperty);
    dialog.show();
    dialog.setProperty(u"p"_s, 5);
    auto *value = dialog.findChildren<QLineEdit *>().at(1);
    QCOMPARE(dialog.value(), QVariant(5));
    QTest::keyClicks(value, u"many"_s);
    QVERIFY(!dialog.value().isValid());
    QTest::keyClick(&dialog, Qt::Key_Return);
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.findChild<QLabel *>(u"problem"_s)->text(),
             u"\"many\" is no value of the type int"_s);
}

void tst_Adding::changesSharedProperties()
{
    DesignFile *file = uart->fileByActualPath(in(u"rtl/a.v"_s), false);
    fixture->select(row({u"Files"_s, u"rtl"_s, u"a.v"_s}));
    QTest::keyClick(fixture->view(), Qt::Key_Return, Qt::AltModifier);
    auto *dialog = qobject_cast<SharedPropertiesDialog *>(QApplication::activeModalWidget());
    QVERIFY(dialog);
    const auto fill = [](const QString &name, const QString &value) {
        return [name, value](QDialog *asked) {
            const QList<QLineEdit *> lines = asked->findChildren<QLineEdit *>();
            QTest::keyClicks(lines[0], name);
            lines[1]->selectAll();
            QTest::keyClicks(lines[1], value);
            Answer::press(asked, u"OK"_s);
        };
    };
    const auto shared = [file] { return ObjectManager::getSharedProperty(file, "key").value(); };
    auto *list = dialog->findChild<QTreeWidget *>();
    {
        const Answer answer(fill(u"key"_s, u"one"_s));
        Answer::press(dialog, u"Add..."_s);
    }
    QCOMPARE(shared(), QVariant(u"one"_s));
    QCOMPARE(list->topLevelItemCount(), 1);
    list->setCurrentItem(list->topLevelItem(0));
    {
        const Answer answer(fill(QString(), u"two"_s));
        Answer::press(dialog, u"Change..."_s);
    }
    QCOMPARE(shared(), QVariant(u"two"_s));
    Answer::press(dialog, u"Remove"_s);
    QVERIFY(!shared().isValid());
    QCOMPARE(list->topLevelItemCount(), 0);
    QTest::keyClick(dialog, Qt::Key_Escape);
}

void tst_Adding::closesSharedPropertiesWithTheirItem()
{
    fixture->select(row({u"Files"_s, u"rtl"_s, u"a.v"_s}));
    QTest::keyClick(fixture->view(), Qt::Key_Return, Qt::AltModifier);
    QPointer<QWidget> dialog = QApplication::activeModalWidget();
    QVERIFY(dialog);
    QVERIFY(uart->removeFile(in(u"rtl/a.v"_s)));
    QTRY_VERIFY(!dialog);
}

TEST_CLASS(tst_Adding)
#include "tst_Adding.moc"
