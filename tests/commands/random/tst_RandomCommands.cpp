// Long random sequences of commands on a design that is on disk and on a model of it: every answer
// is compared, and after every call everything that there is to ask; and once more when the design
// was saved and opened again.
//
// MORVALEN_RANDOM_SEEDS=FIRST-LAST runs other sequences than the usual few. One that fails is
// made as short as it still fails, and told as a script.

#include "commands/commandset.h"
#include "tests/commands/random/evaluation.h"
#include "tests/commands/random/RandomCalls.h"
#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <QElapsedTimer>
#include <QTest>

#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

using Calls = QList<QStringList>;

// What stands for the folder of designs in a sequence; each run has one of its own.
const QString designsFolder = u"@DESIGNS"_s;
constexpr int callsOfASequence = 400;
// Milliseconds that shortening one sequence may take.
constexpr int longestShortening = 20'000;

QString shown(const ModelAnswer &answer)
{
    return u"%1: %2%3"_s.arg(QString::number(answer.code), answer.text,
                             answer.isBeginning ? u" ..."_s : QString());
}

// What is wrong with the answer to a call; nothing when it is the model's.
QString difference(const QStringList &words, const ModelAnswer &expected)
{
    const auto [code, text] = evaluated(words);
    const ModelAnswer actual {code, text};
    const bool right = actual.code == expected.code
        && (expected.isBeginning ? actual.text.startsWith(expected.text)
                                 : actual.text == expected.text);
    return right ? QString()
                 : u"{%1}\n  answers  %2\n  and not  %3"_s.arg(words.join(u"} {"_s), shown(actual),
                                                               shown(expected));
}

// One run of a sequence in a session of its own.
class Run
{
public:
    Run() : folder(session.path(u"session/Designs"_s)), model(folder)
    {
        commands::registerCommandSet(*commandsManager::getInstance(nullptr));
        evaluated({u"designs"_s, u"new"_s, u"d"_s, u"Hardware Design"_s});
    }

    // The first thing that is not as the model has it.
    QString firstDifference(const Calls &calls)
    {
        QString found = compareAll();
        for (const QStringList &words : calls) {
            if (found.isEmpty())
                found = doStep(QStringList(words).replaceInStrings(designsFolder, folder));
            if (found.isEmpty())
                found = compareAll();
        }
        if (found.isEmpty())
            found = reopen();
        return found.isEmpty() ? compareAll() : found;
    }

private:
    QString doStep(const QStringList &words)
    {
        const QString &what = words.first();
        if (what == RandomCalls::reopen)
            return reopen();
        if (what == RandomCalls::makeFile || what == RandomCalls::removeFile) {
            changeFile(actual(model.filePaths(), words[1]), what == RandomCalls::makeFile);
            return {};
        }
        if (what == RandomCalls::makeFolder) {
            const QString path = actual(model.folderPaths(), words[1]);
            QDir().mkpath(path);
            model.disk().addFolder(path);
            return {};
        }
        return difference(words, model.answer(words));
    }

    static QString actual(const QList<ModelPath> &paths, const QString &word)
    {
        for (const ModelPath &path : paths) {
            if (path.word == word)
                return path.actual;
        }
        return {};
    }

    void changeFile(const QString &path, bool make)
    {
        if (make) {
            SessionFixture::write(path, "text");
            model.disk().addFile(path);
        } else {
            QFile::remove(path);
            model.disk().removeFile(path);
        }
    }

    QString reopen()
    {
        const QStringList save {u"design"_s, u"save"_s};
        QString found = difference(save, model.answer(save));
        evaluated({u"design"_s, u"close"_s});
        QCoreApplication::processEvents();
        const QString file = model.folder() + u"/component.xml"_s;
        if (found.isEmpty())
            found =
                difference({u"designs"_s, u"add"_s, file},
                           {TCL_OK, u"Successfully parsed design from \"%1\""_s.arg(file), false});
        model.reopened();
        return found;
    }

    QString compareAll()
    {
        for (const QStringList &question : model.questions()) {
            const QString found = difference(question, model.answer(question));
            if (!found.isEmpty())
                return found;
        }
        return {};
    }

    SessionFixture session;
    QString folder;
    ModelDesign model;
};

Calls drawn(quint32 seed)
{
    return RandomCalls(ModelDesign(designsFolder), seed).draw(callsOfASequence);
}

QString outcome(const Calls &calls) { return Run().firstDifference(calls); }

// Leaves out ever smaller pieces as long as something is still wrong.
Calls shortened(Calls calls)
{
    QElapsedTimer timer;
    timer.start();
    for (qsizetype piece = calls.size() / 2; piece > 0; piece /= 2) {
        for (qsizetype at = 0; at < calls.size() && timer.elapsed() < longestShortening;) {
            Calls fewer = calls;
            fewer.remove(at, qMin(piece, calls.size() - at));
            if (outcome(fewer).isEmpty())
                at += piece;
            else
                calls = fewer;
        }
    }
    return calls;
}

QString asScript(const Calls &calls)
{
    QString script;
    for (const QStringList &words : calls)
        script += u"{"_s + words.join(u"} {"_s) + u"}\n"_s;
    return script;
}

} // namespace

class tst_RandomCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answersLikeTheModel_data();
    void answersLikeTheModel();
};

void tst_RandomCommands::answersLikeTheModel_data()
{
    QTest::addColumn<quint32>("seed");
    const QString wanted = qEnvironmentVariable("MORVALEN_RANDOM_SEEDS", u"1-6"_s);
    const quint32 last = wanted.section(u'-', -1).toUInt();
    for (quint32 seed = wanted.section(u'-', 0, 0).toUInt(); seed <= last; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_RandomCommands::answersLikeTheModel()
{
    QFETCH(const quint32, seed);
    const Calls calls = drawn(seed);
    if (outcome(calls).isEmpty())
        return;
    const Calls fewer = shortened(calls);
    const QString story = asScript(fewer) + outcome(fewer);
    qWarning().noquote() << "seed" << seed << u'\n' + QString(story).replace(QChar(0), u"\\0"_s);
    QFAIL("the design is not as the model of it");
}

TEST_CLASS(tst_RandomCommands)
#include "tst_RandomCommands.moc"
