// Any number of any words to every command on a design and everything in it: each call has one
// answer, and the design that is left can be saved and says the same when it is opened again.

#include "commands/commandset.h"
#include "tests/commands/random/evaluation.h"
#include "tests/commands/random/RandomWords.h"
#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QStringList commandWords {u"design"_s,  u"files"_s,      u"sfile"_s,     u"folders"_s,
                                u"sfolder"_s, u"properties"_s, u"sproperty"_s, u"overview"_s};

// All that a design tells of itself.
QStringList told()
{
    QStringList all;
    for (const QString &what : {u"name"_s, u"vendor"_s, u"library"_s, u"description"_s, u"author"_s,
                                u"id"_s, u"read_only"_s})
        all.append(evaluated({u"design"_s, u"get"_s, what}).second);
    for (const QString &kind : {u"files"_s, u"folders"_s, u"properties"_s})
        all.append(evaluated({kind, u"list"_s}).second);
    for (const QString &word : RandomWords::oddWords) {
        for (const QString &kind : {u"files"_s, u"folders"_s, u"properties"_s})
            all.append(evaluated({kind, u"category"_s, word}).second);
    }
    return all;
}

} // namespace

class tst_RandomWords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneAnswerEach_data();
    void oneAnswerEach();
};

void tst_RandomWords::oneAnswerEach_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 4; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_RandomWords::oneAnswerEach()
{
    QFETCH(const quint32, seed);
    const SessionFixture session;
    commands::registerCommandSet(*commandsManager::getInstance(nullptr));
    // Files that are saved under odd names land here, or not far from it.
    const QString here = session.path(u"far/down/here"_s);
    QVERIFY(QDir().mkpath(here) && QDir::setCurrent(here));
    SessionFixture::write(session.path(u"x/keep"_s), "mine");
    evaluated({u"designs"_s, u"new"_s, u"d"_s});
    const QString file = session.designs(u"d/component.xml"_s);

    RandomWords words(commandWords, seed);
    for (int i = 0; i < 3000; ++i) {
        const QStringList call = words.draw();
        const int code = evaluated(call).first;
        QVERIFY2(code == TCL_OK || code == TCL_ERROR, qPrintable(call.join(u' ')));
        if (session.manager()->activeDesigns().isEmpty())
            QCOMPARE(evaluated({u"designs"_s, u"add"_s, file}).first, TCL_OK);
    }
    evaluated({u"design"_s, u"proc_cycle"_s, u"end"_s});
    const QStringList before = told();
    QCOMPARE(evaluated({u"design"_s, u"close"_s}).first, TCL_OK);
    QCOMPARE(evaluated({u"designs"_s, u"add"_s, file}).first, TCL_OK);
    QCOMPARE(told(), before);
    QVERIFY(QFileInfo::exists(session.path(u"x/keep"_s)));
    QDir::setCurrent(u"/"_s);
}

TEST_CLASS(tst_RandomWords)
#include "tst_RandomWords.moc"
