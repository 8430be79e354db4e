#include "tests/commands/CommandTest.h"

using namespace Qt::Literals::StringLiterals;

Q_DECLARE_METATYPE(CommandTest::Row)

namespace {

// QCOMPARE cuts long texts off.
void compareWhole(const QString &actual, const QString &expected)
{
    if (actual != expected)
        qWarning().noquote() << "actual:\n" << actual << "\nexpected:\n" << expected;
    QCOMPARE(actual, expected);
}

} // namespace

CommandTest::CommandTest() { commands::registerCommandSet(*commandsManager::getInstance(nullptr)); }

CommandTest::~CommandTest() { delete commandsManager::getInstance(nullptr); }

void CommandTest::renewHost()
{
    theHost.reset();
    theHost = std::make_unique<FakeHost>();
    prepare(*theHost);
}

CommandTest::Setup CommandTest::failing(const QStringList &calls)
{
    return [calls](FakeHost &host) {
        for (const QString &call : calls)
            host.journal.fail(call);
    };
}

void CommandTest::addRows(const std::vector<Row> &rows)
{
    QTest::addColumn<Row>("row");
    for (const Row &row : rows)
        QTest::newRow(row.name) << row;
}

void CommandTest::runRow()
{
    QFETCH(const Row, row);
    renewHost();
    if (row.setup)
        row.setup(*theHost);
    theHost->journal.take();

    const Answer answer = eval(row.script);
    compareWhole(answer.text, QString::fromUtf8(row.text));
    QCOMPARE(answer.code, row.code);
    if (!row.journal.isNull())
        compareWhole(theHost->journal.take().join(u'\n'), QString::fromUtf8(row.journal));
}

CommandTest::Answer CommandTest::eval(const QByteArray &script)
{
    const int code = Tcl_Eval(interp(), script.constData());
    return {code, tcltext::result(interp())};
}

CommandTest::Answer CommandTest::call(const QStringList &words)
{
    std::vector<Tcl_Obj *> objects;
    for (const QString &word : words) {
        const QByteArray bytes = tcltext::toTcl(word);
        objects.push_back(Tcl_NewStringObj(bytes.constData(), int(bytes.size())));
        Tcl_IncrRefCount(objects.back());
    }
    const int code = Tcl_EvalObjv(interp(), int(objects.size()), objects.data(), 0);
    for (Tcl_Obj *object : objects)
        Tcl_DecrRefCount(object);
    return {code, tcltext::result(interp())};
}
