#include "console/Completion.h"
#include "tests/TestClass.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

// What Tab makes of candidates.
class tst_Completion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void completions_data();
    void completions();
};

void tst_Completion::completions_data()
{
    QTest::addColumn<QStringList>("candidates");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("list");
    const auto row = [](const char *name, const QStringList &candidates, const QString &prefix,
                        Completion::Kind kind, const QString &text, const QString &list) {
        QTest::newRow(name) << candidates << prefix << int(kind) << text << list;
    };
    row("completion-none-1", {}, u"a ["_s, Completion::Tab, u"\t"_s, QString());
    row("completion-one-1", {u"abc"_s}, QString(), Completion::Replacement, u"abc"_s, QString());
    row("completion-one-2 behind a prefix", {u"abc"_s}, u"x ["_s, Completion::Replacement,
        u"x [abc"_s, QString());
    row("completion-several-1", {u"abc1"_s, u"abc2"_s}, QString(), Completion::List, u"abc"_s,
        u"abc1, abc2"_s);
    row("completion-several-2 nothing in common", {u"a"_s, u"b"_s}, u"x;"_s, Completion::List,
        u"x;"_s, u"a, b"_s);
    row("completion-several-3 one begins the other", {u"abc"_s, u"ab"_s}, QString(),
        Completion::List, u"ab"_s, u"abc, ab"_s);
    row("completion-several-4 an empty one", {u"abc"_s, QString()}, QString(), Completion::List,
        QString(), u"abc, "_s);
    row("completion-several-5 equal", {u"ab"_s, u"ab"_s}, QString(), Completion::List, u"ab"_s,
        u"ab, ab"_s);
}

void tst_Completion::completions()
{
    QFETCH(const QStringList, candidates);
    QFETCH(const QString, prefix);
    const Completion completion = Completion::of(candidates, prefix);
    QTEST(int(completion.kind), "kind");
    QTEST(completion.text, "text");
    QTEST(completion.list, "list");
}

TEST_CLASS(tst_Completion)
#include "tst_Completion.moc"
