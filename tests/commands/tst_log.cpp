#include "tests/commands/CommandTest.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray usage =
    "Usage: log message type\n\nSupported Types:\n - info \n - warning \n - error";
const QByteArray logpUsage =
    "Usage: logp message type\n\nSupported Types:\n - info \n - warning \n - error";

} // namespace

class tst_log : public CommandTest
{
    Q_OBJECT

private Q_SLOTS:
    void log_data()
    {
        const QByteArray done = "Message logged";
        addRows({
            {"log-type-1 a message alone is information", "log {hello there}", TCL_OK, done,
             "logger.logMessage(, 2, hello there, -, -, -)"},
            {"log-type-2 information", "log m info", TCL_OK, done,
             "logger.logMessage(, 2, m, -, -, -)"},
            {"log-type-3 a warning", "log m warning", TCL_OK, done,
             "logger.logMessage(, 4, m, -, -, -)"},
            {"log-type-4 an error", "log m error", TCL_OK, done,
             "logger.logMessage(, 8, m, -, -, -)"},
            {"log-type-5 type words are case-sensitive", "log m INFO", TCL_ERROR, usage, ""},
            {"log-type-6 an unknown type", "log m debug", TCL_ERROR, usage, ""},
            {"log-type-7 an empty type", "log m {}", TCL_ERROR, usage, ""},
            {"log-count-1 no message", "log", TCL_ERROR, usage, ""},
            {"log-count-2 too many words", "log m info x", TCL_ERROR, usage, ""},
            {"log-text-1 an empty message", "log {}", TCL_OK, done,
             "logger.logMessage(, 2, , -, -, -)"},
            {"log-text-2 a message that looks like a script", "log {a \"b\" {c} $d [e] %1 \\ x}",
             TCL_OK, done, "logger.logMessage(, 2, a \"b\" {c} $d [e] %1 \\ x, -, -, -)"},
            {"log-text-3 a message beyond ASCII and of two lines", "log \"a\\n\u20ac\"", TCL_OK,
             done, "logger.logMessage(, 2, a\n\u20ac, -, -, -)"},
        });
    }
    void log() { runRow(); }

    void aMessageKeepsItsZeroCharacter()
    {
        renewHost();
        QCOMPARE(call({u"log"_s, u"a\0b"_s}).code, TCL_OK);
        QCOMPARE(host().journal.take(), {u"logger.logMessage(, 2, a\0b, -, -, -)"_s});
    }

    void theUsageNamesTheCommandAsItWasTyped()
    {
        renewHost();
        QCOMPARE(eval("rename log {write down %1}").code, TCL_OK);
        const Answer answer = eval("{write down %1}");
        QCOMPARE(eval("rename {write down %1} log").code, TCL_OK);
        QCOMPARE(answer.text,
                 QString::fromUtf8(usage).replace("Usage: log"_L1, "Usage: write down %1"_L1));
        QCOMPARE(answer.code, TCL_ERROR);
    }
};

TEST_CLASS(tst_log)
#include "tst_log.moc"
