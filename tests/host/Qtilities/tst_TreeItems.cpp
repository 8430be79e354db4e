#include "tests/TestClass.h"

#include <Qtilities/TreeFileItem.h>
#include <Qtilities/TreeItemBase.h>

#include <QSignalSpy>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::InstanceFactoryInfo;
using Qtilities::Core::Observer;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::Status;
using Qtilities::Core::Interfaces::IObjectBase;
using Qtilities::CoreGui::TreeFileItem;
using Qtilities::CoreGui::TreeItemBase;

namespace {

class FileItem : public TreeFileItem
{
public:
    QString actualPath() const override { return path; }
    Status trySetActualPath(const QString &newPath) override
    {
        path = newPath;
        return {};
    }
    QtilitiesCategory category() const override { return {}; }
    Status trySetCategory(const QtilitiesCategory &) override
    {
        return Status::unsupported(u"It has none"_s);
    }

private:
    QString path;
};

class PlainItem : public TreeItemBase
{
public:
    InstanceFactoryInfo instanceFactoryInfo() const override { return {}; }
};

// Has a name of its own, and no way to change it.
class FixedItem : public PlainItem
{
public:
    QString getName(const Observer *) const override { return u"fixed"_s; }
};

} // namespace

// Items of trees: names, categories, paths, and whether they have changed.
class tst_TreeItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasAName();
    void cannotBeRenamedWithANameOfItsOwn();
    void givesTheLastPartOfAPath_data();
    void givesTheLastPartOfAPath();
    void tellsOfModifications();
    void isModifiedByAnotherCategory();
    void leadsBackToItsObject();
};

void tst_TreeItems::hasAName()
{
    PlainItem item;
    Observer context(u"context"_s);
    QCOMPARE(context.objectName(), u"context"_s);
    QCOMPARE(item.getName(), u""_s);

    QVERIFY(item.setName(u"name"_s));
    QVERIFY(!item.setName(u""_s));

    QCOMPARE(item.getName(), u"name"_s);
    QCOMPARE(item.getName(&context), u"name"_s);
    QCOMPARE(item.objectName(), u"name"_s);
    QVERIFY(item.setName(u"other"_s, &context));
    QCOMPARE(item.getName(), u"other"_s);
}

void tst_TreeItems::cannotBeRenamedWithANameOfItsOwn()
{
    FixedItem item;
    item.setObjectName(u"object"_s);

    const Status status = item.trySetName(u"other"_s);

    QCOMPARE(status.kind(), Status::Kind::Unsupported);
    QCOMPARE(status.text(), u"The item \"fixed\" cannot be renamed to \"other\""_s);
    QVERIFY(!item.setName(u"other"_s));
    QCOMPARE(item.objectName(), u"object"_s);
    QVERIFY(item.setName(u"fixed"_s));
}

void tst_TreeItems::givesTheLastPartOfAPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");

    QTest::newRow("file-name-1 a file") << u"/a/b.c"_s << u"b.c"_s;
    QTest::newRow("file-name-2 a file that is not there") << u"/none/x y"_s << u"x y"_s;
    QTest::newRow("file-name-3 no path") << u""_s << u""_s;
}

void tst_TreeItems::givesTheLastPartOfAPath()
{
    QFETCH(QString, path);
    QFETCH(QString, name);
    FileItem item;

    item.setActualPath(path);

    QCOMPARE(item.fileName(), name);
}

void tst_TreeItems::tellsOfModifications()
{
    PlainItem item;
    QSignalSpy spy(&item, &TreeItemBase::modificationStateChanged);
    QVERIFY(!item.isModified());

    item.setModificationState(true);
    item.setModificationState(true);
    QVERIFY(item.isModified());
    item.setModificationState(false);

    QVERIFY(!item.isModified());
    QCOMPARE(spy.size(), 2);
    QCOMPARE(spy[0][0].toBool(), true);
    QCOMPARE(spy[1][0].toBool(), false);
}

void tst_TreeItems::isModifiedByAnotherCategory()
{
    PlainItem item;
    const QtilitiesCategory category({u"a"_s, u"b"_s});

    QVERIFY(item.setCategory(QtilitiesCategory()));
    QVERIFY(!item.isModified());
    QVERIFY(item.setCategory(category));

    QVERIFY(item.isModified());
    QVERIFY(item.category() == category);
}

void tst_TreeItems::leadsBackToItsObject()
{
    PlainItem item;
    const PlainItem &constant = item;

    IObjectBase *const base = &item;
    QCOMPARE(base->objectBase(), static_cast<QObject *>(&item));
    QCOMPARE(static_cast<const IObjectBase &>(constant).objectBase(),
             static_cast<const QObject *>(&item));
}

APPLESS_TEST_CLASS(tst_TreeItems)
#include "tst_TreeItems.moc"
