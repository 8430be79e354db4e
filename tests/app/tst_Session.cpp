#include "app/session/Session.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

class tst_Session : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aNewFolder_data();
    void aNewFolder();
    void whatIsThereStays();
    void unusable_data();
    void unusable();
    void unwritable();

private:
    // The path of name in a fresh temporary folder.
    QString below(const QString &name) const { return folder->filePath(name); }
    void write(const QString &path, const QByteArray &bytes) const;
    static QByteArray read(const QString &path);

    std::unique_ptr<QTemporaryDir> folder;
};

void tst_Session::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
}

void tst_Session::write(const QString &path, const QByteArray &bytes) const
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray tst_Session::read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_Session::aNewFolder_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("session-new-1 a plain name") << u"session"_s;
    QTest::newRow("session-new-2 several levels") << u"a/b/c"_s;
    QTest::newRow("session-new-3 characters that scripts take for code")
        << u"a b [exit 9] $HOME \"q\" {x} ;#'"_s;
    QTest::newRow("session-new-4 characters beyond ASCII") << u"Entw\u00fcrfe \u20ac \U0001f40d"_s;
}

void tst_Session::aNewFolder()
{
    QFETCH(const QString, name);
    QCOMPARE(Session::prepare(below(name)).text(), QString());
    const QStringList made = QDir(below(name)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    QCOMPARE(made,
             (QStringList {u"Backups"_s, u"Designs"_s, u"Logs"_s, u"Projects"_s, u"Scripts"_s,
                           u"settings.ini"_s}));

    QSettings settings(below(name + u"/settings.ini"_s), QSettings::IniFormat);
    settings.beginGroup(u"Designs"_s);
    settings.beginGroup(u"Environment"_s);
    QCOMPARE(settings.value(u"organization_name"_s).toString(), u"local"_s);
}

void tst_Session::whatIsThereStays()
{
    QVERIFY(QDir().mkpath(below(u"Scripts"_s)));
    const QByteArray settings = "[Designs]\nEnvironment\\other=1\n";
    write(below(u"settings.ini"_s), settings);
    write(below(u"Scripts/startup.tcl"_s), "puts hello\n");
    for (int start = 0; start < 2; ++start) {
        QVERIFY(Session::prepare(folder->path()).isOk());
        QCOMPARE(read(below(u"settings.ini"_s)), settings);
        QCOMPARE(read(below(u"Scripts/startup.tcl"_s)), QByteArray("puts hello\n"));
    }
}

void tst_Session::unusable_data()
{
    QTest::addColumn<QString>("blocker");
    QTest::addColumn<QString>("session");
    QTest::addColumn<QString>("reason");
    QTest::newRow("session-bad-1 the folder is a file")
        << u"file"_s << u"file"_s << u"%1/file: Not a directory"_s;
    QTest::newRow("session-bad-2 a folder above it is a file")
        << u"file"_s << u"file/session"_s << u"%1/file/session: Not a directory"_s;
    QTest::newRow("session-bad-3 a folder in it is a file")
        << u"Designs"_s << u""_s << u"%1/Designs: Not a directory"_s;
}

void tst_Session::unusable()
{
    QFETCH(const QString, blocker);
    QFETCH(const QString, session);
    QFETCH(const QString, reason);
    write(below(blocker), "mine");
    QCOMPARE(Session::prepare(QDir::cleanPath(below(session))).text(),
             u"cannot use the session folder "_s + reason.arg(folder->path()));
    QCOMPARE(read(below(blocker)), QByteArray("mine"));
}

void tst_Session::unwritable()
{
    // The administrator may write everywhere but on systems that nobody may write to.
    const QString session = ::geteuid() == 0 ? u"/proc/session"_s : below(u"locked"_s);
    if (::geteuid() != 0) {
        QVERIFY(QDir().mkdir(session));
        QVERIFY(QFile::setPermissions(session, QFile::ReadOwner | QFile::ExeOwner));
    }
    const QString error = Session::prepare(session).text();
    QVERIFY2(error.startsWith(u"cannot use the session folder "_s + session + u": "_s),
             qPrintable(error));
}

GUILESS_TEST_CLASS(tst_Session)
#include "tst_Session.moc"
