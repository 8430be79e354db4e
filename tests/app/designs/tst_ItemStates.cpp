#include "app/designs/ItemStates.h"
#include "app/designs/RowDelegate.h"
#include "tests/app/designs/DesignTreeFixture.h"
#include "tests/host/MorvalenCore/GitRepository.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;

namespace {

// Notes the states that were painted last, by the names of the rows.
class Painted : public RowDelegate
{
public:
    mutable QHash<QString, QString> states;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        if (index.column() == StateColumn)
            states[index.siblingAtColumn(0).data().toString()] = index.data().toString();
        RowDelegate::paint(painter, option, index);
    }
};

// Is looked up until that is given up.
class Endless : public QObject, public MorvalenCore::AbstractDesignLinkedItem
{
public:
    struct Counts
    {
        std::atomic_int begun = 0;
        std::atomic_int ended = 0;
    };
    std::shared_ptr<Counts> counts = std::make_shared<Counts>();

    bool existsOnDisk() const override { return true; }
    StateLookup stateLookup() const override
    {
        return [of = counts](const std::atomic_bool &cancelled) {
            ++of->begun;
            while (!cancelled)
                QThread::msleep(1);
            ++of->ended;
            return MorvalenCore::LinkedItemState {};
        };
    }
};

} // namespace

// What the tree shows of the disk and of version control.
class tst_ItemStates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void showsRevisions();
    void showsWhatIsMissing();
    void looksAgainWhenAsked();
    void looksAgainAfterChanges();
    void forgetsItemsThatGo();
    void goesAwayWhileItLooks();
    void looksNoMoreOnceItHasEnded();

private:
    QString in(const QString &name) const { return fixture->session.path(u"repo/"_s + name); }
    QString text(const QString &name, int column) const
    {
        return DesignTreeFixture::textOf(fixture->row({u"ip"_s, u"Files"_s, u"files"_s, name}),
                                         column);
    }

    std::optional<DesignTreeFixture> fixture;
    std::optional<GitRepository> repository;
    IDesign *design = nullptr;
};

// A design in a repository.
void tst_ItemStates::init()
{
    fixture.emplace();
    QVERIFY(fixture->shown);
    const IDesign *made = fixture->session.create(u"ip"_s);
    const QByteArray component = SessionFixture::read(made->componentFileName());
    fixture->session.closeAll();
    QVERIFY(QDir().mkpath(in(QString())));
    repository.emplace(in(QString()));
    SessionFixture::write(in(u"component.xml"_s), component);
    SessionFixture::write(in(u"a.v"_s), "1");
    design = fixture->session.open(in(u"component.xml"_s));
    QVERIFY(design);
    QVERIFY(design->addFile(u"a.v"_s, QString(), true, nullptr));
    QVERIFY(design->addFile(u"b.v"_s, QString(), true, nullptr));
    QVERIFY(fixture->follow());
}

void tst_ItemStates::cleanup()
{
    repository.reset();
    fixture.reset();
}

void tst_ItemStates::showsRevisions()
{
    QTRY_COMPARE(text(u"b.v"_s, StateColumn), u"Missing"_s);
    QCOMPARE(text(u"a.v"_s, VersionControlColumn), QString());
    const QString commit = repository->commit("one");
    fixture->model()->lookAgain();
    QTRY_COMPARE(text(u"a.v"_s, VersionControlColumn), u"Git "_s + commit.left(7));
    QCOMPARE(text(u"b.v"_s, VersionControlColumn), QString());
}

void tst_ItemStates::showsWhatIsMissing()
{
    QTRY_COMPARE(text(u"b.v"_s, StateColumn), u"Missing"_s);
    QCOMPARE(text(u"a.v"_s, StateColumn), QString());
    const auto folder = [this] {
        return DesignTreeFixture::textOf(fixture->row({u"ip"_s, u"Folders"_s, u"files"_s}),
                                         StateColumn);
    };
    QTRY_COMPARE(folder(), u"Missing"_s);
    QVERIFY(QDir().mkpath(in(u"files"_s)));
    fixture->model()->lookAgain();
    QTRY_COMPARE(folder(), QString());
}

void tst_ItemStates::looksAgainWhenAsked()
{
    QTRY_COMPARE(text(u"b.v"_s, StateColumn), u"Missing"_s);
    SessionFixture::write(in(u"b.v"_s), "1");
    QVERIFY(QFile::remove(in(u"a.v"_s)));
    fixture->view()->setFocus();
    QTest::keyClick(fixture->view(), Qt::Key_F5);
    QTRY_COMPARE(text(u"b.v"_s, StateColumn), QString());
    QTRY_COMPARE(text(u"a.v"_s, StateColumn), u"Missing"_s);
}

void tst_ItemStates::looksAgainAfterChanges()
{
    // Nobody asks but the view.
    Painted painted;
    fixture->view()->setItemDelegate(&painted);
    QTRY_COMPARE(painted.states.value(u"b.v"_s, u"not painted"_s), u"Missing"_s);
    SessionFixture::write(in(u"b.v"_s), "1");
    design->setAuthor(u"what a script does behind making the file"_s);
    QTRY_COMPARE(painted.states.value(u"b.v"_s), QString());
    QVERIFY(QFile::remove(in(u"b.v"_s)));
    design->setAuthor(u"what a script does in front of deleting the file"_s);
    QTRY_COMPARE(painted.states.value(u"b.v"_s), u"Missing"_s);
}

void tst_ItemStates::forgetsItemsThatGo()
{
    fixture->view()->grab();
    QVERIFY(design->removeFile(u"b.v"_s));
    QVERIFY(design->addFile(u"a.v/../b.v"_s, QString(), true, nullptr));
    QVERIFY(fixture->follow());
    QTRY_COMPARE(text(u"b.v"_s, StateColumn), u"Missing"_s);
    SessionFixture::write(in(u"b.v"_s), "1");
    QVERIFY(design->removeFile(u"b.v"_s));
    QVERIFY(design->addFile(u"b.v"_s, QString(), true, nullptr));
    QVERIFY(fixture->follow());
    QTRY_COMPARE(text(u"b.v"_s, StateColumn), QString());
}

void tst_ItemStates::goesAwayWhileItLooks()
{
    for (int i = 0; i < 30; ++i)
        QVERIFY(design->addFile(u"f%1.v"_s.arg(i), QString(), true, nullptr));
    QVERIFY(fixture->follow());
    fixture->view()->grab();
    fixture->session.closeAll();
    fixture->view()->grab();
    repository.reset();
    fixture.reset();
}

void tst_ItemStates::looksNoMoreOnceItHasEnded()
{
    ItemStates states;
    Endless first;
    Endless second;
    Endless third;
    states.state(&first, first, {});
    states.state(&second, second, {});
    QTRY_COMPARE(first.counts->begun, 1);
    states.end();
    QCOMPARE(first.counts->ended, 1);
    states.state(&third, third, {});
    QCoreApplication::processEvents();
    states.end();
    QCOMPARE(second.counts->begun, 0);
    QCOMPARE(third.counts->begun, 0);
}

TEST_CLASS(tst_ItemStates)
#include "tst_ItemStates.moc"
