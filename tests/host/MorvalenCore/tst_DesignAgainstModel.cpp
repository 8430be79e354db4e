#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <QMap>
#include <QRandomGenerator>
#include <QTest>

#include <optional>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignFile;
using MorvalenCore::DesignFolder;
using MorvalenCore::DesignProperty;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::ObjectManager;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::SharedProperty;

namespace {

// One item as the model has it. The key is the actual path of a file or folder, or the name of a
// property.
struct Item
{
    QString key;
    QString category;
    QString node;
    QVariant value;
    QMap<QString, QVariant> shared;
    bool isActive = false;
};

using Items = QList<Item>;

qsizetype indexOf(const Items &items, const QString &key)
{
    for (qsizetype i = 0; i < items.size(); ++i) {
        if (items[i].key == key)
            return i;
    }
    return -1;
}

// What a design of the structure Hardware should be after the same steps; the simplest thing that
// can know it.
struct Model
{
    QString description;
    QString author;
    bool readOnly = false;
    Items files;
    Items folders;
    Items properties;
};

const QStringList nodes {u"rtl"_s, u"testbench"_s, u"constraints"_s, u"documents"_s};

struct Kind
{
    QString suffix;
    QString category;
    QString node;
};
const QList<Kind> kinds {{u".v"_s, u"HDL::Verilog"_s, u"rtl"_s},
                         {u"_tb.v"_s, u"HDL::Verilog"_s, u"testbench"_s},
                         {u".xdc"_s, u"Constraints"_s, u"constraints"_s},
                         {u".md"_s, u"Documentation"_s, u"documents"_s},
                         {u".odd"_s, u"Other"_s, u"rtl"_s}};

QString shownItem(const Item &item)
{
    QStringList shared;
    for (auto it = item.shared.cbegin(); it != item.shared.cend(); ++it)
        shared.append(it.key() + u'=' + QLatin1StringView(it.value().typeName()) + u':'
                      + it.value().toString());
    return u"%1 [%2] <%3> {%4}%5%6"_s.arg(item.key, item.category, item.node, shared.join(u','),
                                          item.isActive ? u" active"_s : QString(),
                                          item.value.isValid() ? u" = "_s + item.value.toString()
                                                               : QString());
}

QStringList shownItems(const QString &heading, const Items &items)
{
    QStringList lines {heading};
    for (const Item &item : items)
        lines.append(u"  "_s + shownItem(item));
    return lines;
}

QString shown(const Model &model)
{
    Items files;
    for (const QString &node : nodes) {
        for (const Item &file : model.files) {
            if (file.node == node)
                files.append(file);
        }
    }
    QStringList lines {u"description "_s + model.description, u"author "_s + model.author,
                       model.readOnly ? u"read-only"_s : u"writable"_s};
    lines += shownItems(u"files"_s, files);
    lines += shownItems(u"folders"_s, model.folders);
    lines += shownItems(u"properties"_s, model.properties);
    return lines.join(u'\n');
}

template <typename Object>
Item itemOf(const Object *object, const QString &key, const QList<QPointer<Object>> &active)
{
    Item item;
    item.key = key;
    item.category = object->category().toString(u"::"_s);
    for (const QString &name : ObjectManager::sharedPropertyNames(object))
        item.shared.insert(
            name, ObjectManager::getSharedProperty(object, name.toUtf8().constData()).value());
    item.isActive = active.contains(QPointer<Object>(const_cast<Object *>(object)));
    return item;
}

// The design as it says it is.
Model modelOf(const IDesign *design)
{
    Model model;
    model.description = design->description();
    model.author = design->author();
    model.readOnly = design->isReadOnly();
    for (const DesignFile *file : design->filesUnderNode(QString(), true)) {
        model.files.append(itemOf(file, file->actualPath(), design->activeFiles()));
        model.files.last().node = file->node();
    }
    for (const DesignFolder *folder : design->folders())
        model.folders.append(itemOf(folder, folder->actualPath(), design->activeFolders()));
    for (const DesignProperty *property : design->properties()) {
        model.properties.append(itemOf(property, property->getName(), design->activeProperties()));
        model.properties.last().value = property->propertyData().value();
    }
    return model;
}

} // namespace

// Long random sequences of what commands do, on a design and on a model of it.
class tst_DesignAgainstModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void behavesLikeTheModel_data();
    void behavesLikeTheModel();

private:
    int pick(int count) { return random.bounded(count); }
    QString pickText() { return texts[pick(int(texts.size()))]; }
    QVariant pickValue() { return values[pick(int(values.size()))]; }
    QString folder() const { return session->designs(u"d"_s); }
    // A path in one of several spellings, and the actual path that it stands for.
    std::pair<QString, QString> pickPath(const QString &suffix);
    Item *pickItem(Items &items)
    {
        return items.isEmpty() ? nullptr : &items[pick(int(items.size()))];
    }

    void step();
    void changeText();
    void changeFiles();
    void changeFolders();
    void changeProperties();
    void changeShared(QObject *object, Item *item);
    template <typename Object>
    void changeCategory(Object *object, Item *item);
    template <typename Object>
    void movePath(Object *object, Item *item, const Items &all);
    void reopen();

    const QStringList texts {u""_s, u"plain"_s, u"a::b"_s, u"\"%1\" <&> ä\U0001F600"_s,
                             u"two\nlines "_s};
    const QList<QVariant> values {true, -7, 4000000000U, 0.25, u"text"_s, QString()};
    std::optional<SessionFixture> session;
    IDesign *design = nullptr;
    Model model;
    QRandomGenerator random;
};

std::pair<QString, QString> tst_DesignAgainstModel::pickPath(const QString &suffix)
{
    const QString name = u"n%1"_s.arg(pick(12)) + suffix;
    switch (pick(5)) {
    case 0:
        return {u"sub/./x/../"_s + name, folder() + u"/sub/"_s + name};
    case 1:
        return {folder() + u'/' + name, folder() + u'/' + name};
    case 2:
        return {u"../outside/"_s + name, session->designs(u"outside/"_s + name)};
    case 3:
        return {u"sub\\"_s + name, folder() + u"/sub/"_s + name};
    default:
        return {name, folder() + u'/' + name};
    }
}

template <typename Object>
void tst_DesignAgainstModel::changeCategory(Object *object, Item *item)
{
    const QtilitiesCategory category =
        QtilitiesCategory::fromString(texts[1 + pick(int(texts.size()) - 1)], u"::"_s);
    QCOMPARE(object->setCategory(category), !model.readOnly);
    if (!model.readOnly)
        item->category = category.toString(u"::"_s);
}

template <typename Object>
void tst_DesignAgainstModel::movePath(Object *object, Item *item, const Items &all)
{
    const auto [path, actual] = pickPath(u".v"_s);
    object->setActualPath(path);
    if (!model.readOnly && indexOf(all, actual) < 0)
        item->key = actual;
}

void tst_DesignAgainstModel::changeShared(QObject *object, Item *item)
{
    const QString name = u"shared %1"_s.arg(pick(3));
    if (pick(3) == 0) {
        object->setProperty(name.toUtf8().constData(), QVariant());
        if (!model.readOnly)
            item->shared.remove(name);
        return;
    }
    const QVariant value = pickValue();
    QCOMPARE(
        ObjectManager::setSharedProperty(object, SharedProperty(name.toUtf8().constData(), value)),
        !model.readOnly || item->shared.value(name) == value);
    if (!model.readOnly)
        item->shared.insert(name, value);
}

void tst_DesignAgainstModel::changeText()
{
    const QString text = pickText();
    if (pick(2) == 0) {
        design->setDescription(text);
        if (!model.readOnly)
            model.description = text;
    } else {
        design->setAuthor(text);
        if (!model.readOnly)
            model.author = text;
    }
}

void tst_DesignAgainstModel::changeFiles()
{
    const int what = pick(6);
    if (what < 2) {
        const Kind &kind = kinds[pick(int(kinds.size()))];
        const auto [path, actual] = pickPath(kind.suffix);
        const bool isNew = indexOf(model.files, actual) < 0;
        QCOMPARE(design->addFile(path, QString(), true, nullptr) != nullptr,
                 isNew && !model.readOnly);
        if (isNew && !model.readOnly)
            model.files.append({actual, kind.category, kind.node, {}, {}, false});
        return;
    }
    Item *item = pickItem(model.files);
    if (!item) {
        QVERIFY(!design->removeFile(pickPath(u".v"_s).first));
        return;
    }
    DesignFile *file = design->fileByActualPath(item->key, false);
    QVERIFY(file);
    if (what == 2) {
        QCOMPARE(design->removeFile(item->key), !model.readOnly);
        if (!model.readOnly)
            model.files.removeAt(item - model.files.data());
    } else if (what == 3) {
        movePath(file, item, model.files);
    } else if (what == 4) {
        changeCategory(file, item);
    } else {
        changeShared(file, item);
        design->setActiveFiles({file});
        for (Item &other : model.files)
            other.isActive = &other == item;
    }
}

void tst_DesignAgainstModel::changeFolders()
{
    const int what = pick(6);
    if (what < 2) {
        const auto [path, actual] = pickPath(u".v"_s);
        const bool isNew = indexOf(model.folders, actual) < 0;
        QCOMPARE(design->addFolder(path, nullptr) != nullptr, isNew && !model.readOnly);
        if (isNew && !model.readOnly)
            model.folders.append({actual, {}, {}, {}, {}, false});
        return;
    }
    Item *item = pickItem(model.folders);
    if (!item)
        return;
    DesignFolder *found = design->folderByActualPath(item->key);
    QVERIFY(found);
    if (what == 2) {
        QCOMPARE(design->removeFolder(item->key), !model.readOnly);
        if (!model.readOnly)
            model.folders.removeAt(item - model.folders.data());
    } else if (what == 3) {
        movePath(found, item, model.folders);
    } else if (what == 4) {
        changeCategory(found, item);
    } else {
        changeShared(found, item);
        design->setActiveFolders({found});
        for (Item &other : model.folders)
            other.isActive = &other == item;
    }
}

void tst_DesignAgainstModel::changeProperties()
{
    const int what = pick(7);
    const QString name = u"p \"%1\""_s.arg(pick(8));
    if (what < 2) {
        const QVariant value = pickValue();
        const bool isNew = indexOf(model.properties, name) < 0;
        QCOMPARE(design->addProperty(name, {}, value, false, nullptr) != nullptr,
                 isNew && !model.readOnly);
        if (isNew && !model.readOnly)
            model.properties.append({name, {}, {}, value, {}, false});
        return;
    }
    Item *item = pickItem(model.properties);
    if (!item)
        return;
    DesignProperty *property = design->propertyByName(item->key);
    QVERIFY(property);
    if (what == 2) {
        QCOMPARE(design->removeProperty(item->key), !model.readOnly);
        if (!model.readOnly)
            model.properties.removeAt(item - model.properties.data());
    } else if (what == 3) {
        const bool renamed =
            item->key == name || (!model.readOnly && indexOf(model.properties, name) < 0);
        QCOMPARE(property->setName(name), renamed);
        if (renamed)
            item->key = name;
    } else if (what == 4) {
        changeCategory(property, item);
    } else if (what == 5) {
        const QVariant value = pickValue();
        property->setValue(value);
        if (!model.readOnly)
            item->value = value;
    } else {
        changeShared(property, item);
        design->setActiveProperties({property});
        for (Item &other : model.properties)
            other.isActive = &other == item;
    }
}

void tst_DesignAgainstModel::reopen()
{
    design = session->reopen(design);
    QVERIFY(design);
    // What is active is not kept.
    for (Items *items : {&model.files, &model.folders, &model.properties}) {
        for (Item &item : *items)
            item.isActive = false;
    }
}

void tst_DesignAgainstModel::step()
{
    switch (pick(24)) {
    case 0:
        model.readOnly = !model.readOnly;
        design->setReadOnly(model.readOnly);
        break;
    case 1:
        reopen();
        break;
    case 2:
        QVERIFY(design->saveToComponentFile(nullptr));
        break;
    case 3:
        changeText();
        break;
    default:
        switch (pick(3)) {
        case 0:
            changeFolders();
            break;
        case 1:
            changeProperties();
            break;
        default:
            changeFiles();
        }
    }
}

void tst_DesignAgainstModel::behavesLikeTheModel_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 12; ++seed)
        QTest::newRow(qPrintable(u"seed %1"_s.arg(seed))) << seed;
}

void tst_DesignAgainstModel::behavesLikeTheModel()
{
    QFETCH(quint32, seed);
    random.seed(seed);
    session.emplace();
    design = session->create(u"d"_s, u"Hardware Design"_s, u"Hardware"_s);
    model = Model();
    for (const QString &node : nodes)
        model.folders.append({folder() + u'/' + node, {}, {}, {}, {}, false});
    QCOMPARE(shown(modelOf(design)), shown(model));
    for (int i = 0; i < 300; ++i) {
        step();
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(u"in step %1"_s.arg(i)));
        QCOMPARE(shown(modelOf(design)), shown(model));
    }
    reopen();
    QCOMPARE(shown(modelOf(design)), shown(model));
    session.reset();
}

TEST_CLASS(tst_DesignAgainstModel)
#include "tst_DesignAgainstModel.moc"
