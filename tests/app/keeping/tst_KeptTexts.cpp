#include "app/keeping/KeptTexts.h"
#include "tests/TestClass.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;

class tst_KeptTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void comesBackAsItWas_data();
    void comesBackAsItWas();
    void movesADamagedOneToTheBackups();
    void leavesADamagedOneThatCannotBeMoved();
    void aFolderThatWasClearedAwayIsMadeAgain();

private:
    // As a process that is killed leaves it.
    static void leave(const QString &text);
    void damage() const;
    QStringList kept() const;
    QString below(const QString &name) const { return folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> folder;
    QString sessionBefore;
};

void tst_KeptTexts::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
    sessionBefore = QtilitiesApplication::applicationSessionPath();
    QtilitiesApplication::setApplicationSessionPath(folder->path());
}

void tst_KeptTexts::cleanup() { QtilitiesApplication::setApplicationSessionPath(sessionBefore); }

void tst_KeptTexts::leave(const QString &text)
{
    KeptTexts texts;
    QVERIFY(texts.keep({u"/designs/uart/a b.txt"_s, "base", text, 2, QDateTime::currentDateTime()})
                .isOk());
}

QStringList tst_KeptTexts::kept() const
{
    QStringList files;
    const QDir all(below(u"Unsaved"_s));
    for (const QString &process : all.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        for (const QString &file : QDir(all.filePath(process)).entryList({u"*.kept"_s}))
            files.append(all.filePath(process) + u'/' + file);
    }
    return files;
}

void tst_KeptTexts::damage() const
{
    for (const QString &name : kept()) {
        QFile file(name);
        QVERIFY(file.open(QIODevice::Append));
        file.write("more");
    }
}

void tst_KeptTexts::comesBackAsItWas_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("kept-1 lines") << u"one\ntwo\n\n"_s;
    QTest::newRow("kept-2 nothing") << QString();
    QTest::newRow("kept-3 a mark of byte order in front") << u"\ufeffab\ufeff"_s;
    QTest::newRow("kept-4 beyond the basic plane") << u"\U0001F600 ä\u2028"_s;
    QTest::newRow("kept-5 zeros and other control characters") << u"a\0b\x1b\x7f\r"_s;
}

void tst_KeptTexts::comesBackAsItWas()
{
    QFETCH(const QString, text);
    leave(text);
    KeptTexts next;
    const auto found = next.takeLeft();
    QCOMPARE(found.status().remarks().size(), 0);
    QCOMPARE(found.value().size(), 1);
    QCOMPARE(found.value()[0].text, text);
    QCOMPARE(found.value()[0].path, u"/designs/uart/a b.txt"_s);
    QCOMPARE(found.value()[0].base, QByteArray("base"));
    QCOMPARE(found.value()[0].cursor, 2);
    next.removeLeft(found.value()[0]);
    next.leaveAgain();
    QCOMPARE(kept(), QStringList());
}

void tst_KeptTexts::movesADamagedOneToTheBackups()
{
    QVERIFY(QDir().mkpath(below(u"Backups"_s)));
    leave(u"text"_s);
    damage();
    KeptTexts next;
    const auto found = next.takeLeft();
    QCOMPARE(found.value().size(), 0);
    const QStringList moved = QDir(below(u"Backups"_s)).entryList(QDir::Files);
    QCOMPARE(moved.size(), 1);
    QCOMPARE(found.status().remarks().size(), 1);
    QCOMPARE(found.status().remarks()[0].text,
             u"A text that was kept cannot be read; it is in \"%1\""_s.arg(
                 below(u"Backups/"_s + moved[0])));
    QCOMPARE(kept(), QStringList());
}

void tst_KeptTexts::leavesADamagedOneThatCannotBeMoved()
{
    leave(u"text"_s);
    damage();
    const QStringList before = kept();
    KeptTexts next;
    const auto found = next.takeLeft();
    QCOMPARE(found.status().remarks().size(), 1);
    QCOMPARE(found.status().remarks()[0].text,
             u"A text that was kept cannot be read; it is in \"%1\""_s.arg(before[0]));
    next.leaveAgain();
    QCOMPARE(kept(), before);
}

void tst_KeptTexts::aFolderThatWasClearedAwayIsMadeAgain()
{
    KeptTexts texts;
    const KeptText text {u"/designs/uart/a.v"_s, "base", u"typed"_s, 0, {}};
    QVERIFY(texts.keep(text).isOk());
    QVERIFY(QDir(below(u"Unsaved"_s)).removeRecursively());
    QVERIFY(texts.keep(text).isOk());
    QCOMPARE(kept().size(), 1);
    texts.dropAll();
    QVERIFY(kept().isEmpty());
}

GUILESS_TEST_CLASS(tst_KeptTexts)
#include "tst_KeptTexts.moc"
