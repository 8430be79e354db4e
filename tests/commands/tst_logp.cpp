#include "tests/commands/CommandTest.h"
#include "tests/TestClass.h"

class tst_logp : public CommandTest
{
    Q_OBJECT

private Q_SLOTS:
    void logp_data()
    {
        const QByteArray usage =
            "Usage: logp message type\n\nSupported Types:\n - info \n - warning \n - error";
        const QByteArray done = "Message logged";
        addRows({
            {"logp-type-1 information", "logp m info", TCL_OK, done,
             "logger.logPriorityMessage(, 2, m, -, -, -)"},
            {"logp-type-2 a warning", "logp m warning", TCL_OK, done,
             "logger.logPriorityMessage(, 4, m, -, -, -)"},
            {"logp-type-3 an error", "logp m error", TCL_OK, done,
             "logger.logPriorityMessage(, 8, m, -, -, -)"},
            {"logp-type-4 type words are case-sensitive", "logp m Info", TCL_ERROR, usage, ""},
            {"logp-count-1 the type is never left out", "logp m", TCL_ERROR, usage, ""},
            {"logp-count-2 no message", "logp", TCL_ERROR, usage, ""},
            {"logp-count-3 too many words", "logp m info x", TCL_ERROR, usage, ""},
        });
    }
    void logp() { runRow(); }
};

TEST_CLASS(tst_logp)
#include "tst_logp.moc"
