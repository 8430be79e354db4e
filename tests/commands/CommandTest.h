#pragma once

#include "commands/commandset.h"
#include "interp/tcltext.h"
#include "tests/fakes/FakeHost.h"

#include <QTest>

#include <functional>
#include <memory>
#include <vector>

// What the test of one command needs: a fresh fake host for each row, an interpreter with all
// commands in it, and rows that say a call, its answer and what the host was asked.
class CommandTest : public QObject
{
    Q_OBJECT

public:
    struct Answer
    {
        int code;
        QString text;
    };

    using Setup = std::function<void(FakeHost &)>;

    // One call, written as a script; its return code and whole text; and the lines of the journal,
    // which is not compared when it is left out.
    struct Row
    {
        const char *name;
        QByteArray script;
        int code;
        QByteArray text;
        QByteArray journal = {};
        Setup setup = {};
    };

protected:
    CommandTest();
    ~CommandTest() override;

    // The rows of a data function, and the body of the test function that goes with it.
    void addRows(const std::vector<Row> &rows);
    void runRow();

    Answer eval(const QByteArray &script);

    // Evaluates words as they are, whatever they hold.
    Answer call(const QStringList &words);

    FakeHost &host() { return *theHost; }
    Tcl_Interp *interp() { return commandsManager::getInstance(nullptr)->interp; }

    // What a row's host is like before the row's own setup.
    virtual void prepare(FakeHost &) { }

    void renewHost();

    // A setup in which these calls of the journal fail.
    static Setup failing(const QStringList &calls);

private:
    std::unique_ptr<FakeHost> theHost;
};
