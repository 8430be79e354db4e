// Commands: any words, to all commands on designs and what is in them. Each call has one answer,
// and the designs that are left say the same when they are saved and opened again. An input is a
// list of calls, one a line, as JSON.

#include "commands/commandset.h"
#include "tests/commands/random/evaluation.h"
#include "tests/commands/random/RandomWords.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/host/MorvalenCore/SessionFixture.h"

#include <MorvalenCore/ChangeBracket.h>
#include <Qtilities/ProjectManager.h>

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int callsOfAnInput = 100;

const QStringList commandWords {u"design"_s,   u"design"_s,     u"files"_s,      u"files"_s,
                                u"sfile"_s,    u"sfile"_s,      u"folders"_s,    u"sfolder"_s,
                                u"sfolder"_s,  u"properties"_s, u"properties"_s, u"sproperty"_s,
                                u"overview"_s, u"builds"_s,     u"designs"_s,    u"project"_s,
                                u"log"_s,      u"logp"_s,       u"help"_s};

// All that the active design tells of itself.
QStringList told()
{
    QStringList all;
    for (const char *what :
         {"name", "vendor", "library", "version", "description", "author", "id", "read_only"})
        all.append(evaluated({u"design"_s, u"get"_s, QString::fromLatin1(what)}).second);
    for (const QString &kind : {u"files"_s, u"folders"_s, u"properties"_s}) {
        all.append(evaluated({kind, u"list"_s}).second);
        for (const QString &word : RandomWords::oddWords)
            all.append(evaluated({kind, u"category"_s, word}).second);
    }
    return all;
}

class Commands : public Subject
{
public:
    Commands() { commands::registerCommandSet(*commandsManager::getInstance(nullptr)); }

    QByteArray make(QRandomGenerator &random) override
    {
        RandomWords words(commandWords, random.generate());
        QByteArray input;
        for (int call = 0; call < callsOfAnInput; ++call)
            input += QJsonDocument(QJsonArray::fromStringList(words.draw()))
                         .toJson(QJsonDocument::Compact)
                + '\n';
        return input;
    }

    QString finding(const QByteArray &input) override
    {
        const SessionFixture session;
        // Files that are saved under odd names land here, or not far from it.
        const QString here = session.path(u"far/down/here"_s);
        QDir().mkpath(here);
        QDir::setCurrent(here);
        qputenv("HOME", QFile::encodeName(here));
        SessionFixture::write(session.path(u"x/keep"_s), "mine");
        evaluated({u"designs"_s, u"new"_s, u"d"_s});
        QString wrong;
        for (const QByteArray &line : input.split('\n')) {
            if (wrong.isEmpty() && !line.isEmpty())
                wrong = answerTo(line, session);
        }
        if (wrong.isEmpty())
            wrong = reopened();
        if (wrong.isEmpty() && !QFileInfo::exists(session.path(u"x/keep"_s)))
            wrong = u"deletes what lies elsewhere"_s;
        evaluated({u"project"_s, u"close"_s});
        QDir::setCurrent(u"/"_s);
        return wrong;
    }

private:
    static QString answerTo(const QByteArray &line, const SessionFixture &session)
    {
        const QStringList call = QJsonDocument::fromJson(line).toVariant().toStringList();
        if (call.isEmpty())
            return {};
        const int code = evaluated(call).first;
        if (code != TCL_OK && code != TCL_ERROR)
            return u"ends with the code %1: "_s.arg(code) + QString::fromUtf8(line);
        if (session.manager()->activeDesigns().isEmpty())
            evaluated({u"designs"_s, u"new"_s, u"d"_s});
        return {};
    }

    static QString reopened()
    {
        evaluated({u"design"_s, u"proc_cycle"_s, u"end"_s});
        QCoreApplication::processEvents();
        // What happens when control is back in an event loop.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (MorvalenCore::ChangeBracket::instance()->depth() != 0)
            return u"leaves a bracket open"_s;
        const auto active = SessionFixture::manager()->activeDesigns();
        if (active.isEmpty())
            return {};
        const QString file = active.first()->componentFileName();
        const QStringList before = told();
        if (evaluated({u"design"_s, u"close"_s}).first != TCL_OK)
            return u"leaves a design that cannot be closed: "_s
                + evaluated({u"design"_s, u"close"_s}).second;
        if (evaluated({u"designs"_s, u"add"_s, file}).first != TCL_OK)
            return u"leaves a design that cannot be opened"_s;
        const QStringList after = told();
        for (qsizetype line = 0; line < before.size(); ++line) {
            if (before[line] != after[line])
                return u"leaves a design that says \"%1\", and \"%2\" when opened again"_s.arg(
                    before[line], after[line]);
        }
        return {};
    }
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    Commands all;
    return Fuzzing(u"fuzz_commands"_s, all).run(QCoreApplication::arguments().sliced(1));
}
