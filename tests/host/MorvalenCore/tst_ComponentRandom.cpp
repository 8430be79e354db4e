#include "componenttexts.h"
#include "tests/TestClass.h"
#include "writtendocument.h"

#include <QMap>
#include <QRandomGenerator>
#include <QTest>

using namespace ComponentTexts;
using namespace MorvalenCore;
using namespace WrittenDocument;
using namespace Qt::Literals::StringLiterals;

namespace {

using WrittenDocument::written;

// What a component says of an item, kept apart from the document.
struct Item
{
    ItemId id;
    QString node;
    QString name;
    QString category;
    QString value;
    QString type;
    std::optional<GeneratedInfo> generated;
    QList<SharedValue> shared;
};

struct Model
{
    QMap<DesignField, QString> texts;
    bool readOnly = false;
    QList<Item> files;
    QList<Item> folders;
    QList<Item> properties;
    QList<BuildDescription> builds;
    QString active;
};

QStringList written(const Model &model, const QStringList &sets)
{
    QStringList lines;
    for (const DesignField field : allFields)
        lines += u"text "_s + model.texts.value(field);
    lines += model.readOnly ? u"read-only"_s : u"writable"_s;
    for (const QString &set : sets) {
        for (const Item &file : model.files) {
            if (file.node == set)
                lines += u"file %1 %2 %3%4%5"_s.arg(
                    file.node, file.name, file.category.isEmpty() ? file.node : file.category,
                    written(file.generated), written(file.shared));
        }
    }
    for (const Item &folder : model.folders)
        lines += u"folder %1 %2%3"_s.arg(folder.name, folder.category, written(folder.shared));
    for (const Item &property : model.properties)
        lines += u"property %1=%2 %3 %4%5"_s.arg(property.name, property.value, property.type,
                                                 property.category, written(property.shared));
    for (const BuildDescription &build : model.builds)
        lines += written(build);
    return lines << u"active "_s + model.active;
}

// Applies random edits to a document and to its model.
class Editor
{
public:
    Editor(ComponentDocument &editedDocument, Model &editedModel, quint32 seed)
        : document(editedDocument),
          model(editedModel),
          random(seed)
    {
    }

    bool step()
    {
        switch (random.bounded(12)) {
        case 0:
            return setText();
        case 1:
            document.setReadOnly(model.readOnly = random.bounded(2) != 0);
            return true;
        case 2:
        case 3:
            return addFile();
        case 4:
            return editFile();
        case 5:
            return addFolder();
        case 6:
            return editFolder();
        case 7:
            return addProperty();
        case 8:
            return editProperty();
        case 9:
            return writeBuild();
        case 10:
            return share();
        default:
            return remove();
        }
    }

private:
    QString text()
    {
        static const QStringList texts {u"a"_s,      u"x y"_s,        u"<&\"'>"_s,
                                        u" ends "_s, u"two\nlines"_s, u"\u20ac\u00e9\U0001F600"_s,
                                        u"%1"_s};
        return texts[random.bounded(int(texts.size()))];
    }
    QString unique(const QString &stem) { return stem + QString::number(++counter); }

    template <typename T>
    T *any(QList<T> &list)
    {
        return list.isEmpty() ? nullptr : &list[random.bounded(int(list.size()))];
    }

    bool setText()
    {
        const DesignField field = allFields[random.bounded(int(allFields.size()))];
        const QString value =
            field != DesignField::Name && random.bounded(3) == 0 ? QString() : text();
        model.texts[field] = value;
        return document.setText(field, value).isOk();
    }

    bool addFile()
    {
        const QString set = random.bounded(2) != 0 ? u"rtl"_s : u"docs"_s;
        const QString path = unique(text() + u".v"_s);
        FileSetId to = document.files().fileSet(set);
        if (!to)
            to = document.files().addFileSet(set).value();
        const FileId file = document.files().add(path, to).value();
        model.files.append({file, set, path, {}, {}, {}, {}, {}});
        return bool(file);
    }

    bool editFile()
    {
        Item *const file = any(model.files);
        if (file == nullptr)
            return true;
        const FileId id {file->id};
        if (random.bounded(3) == 0)
            return document.files().setPath(id, file->name = unique(text())).isOk();
        if (random.bounded(2) == 0) {
            file->generated.reset();
            if (random.bounded(2) != 0)
                file->generated = {text(), random.bounded(3) != 0 ? text() : QString()};
            return document.files().setGenerated(id, file->generated).isOk();
        }
        file->category = random.bounded(2) != 0 ? QString() : text();
        return document.files().setCategory(id, file->category).isOk();
    }

    bool addFolder()
    {
        const QString path = unique(text());
        const FolderId folder = document.folders().add(path, {}).value();
        model.folders.append({folder, {}, path, {}, {}, {}, {}, {}});
        return bool(folder);
    }

    bool editFolder()
    {
        Item *const folder = any(model.folders);
        if (folder == nullptr)
            return true;
        if (random.bounded(2) != 0)
            return document.folders().setPath({folder->id}, folder->name = unique(text())).isOk();
        return document.folders().setCategory({folder->id}, folder->category = text()).isOk();
    }

    bool addProperty()
    {
        const QString name = unique(text());
        const QString value = text();
        const PropertyId property =
            document.properties().add({name, u"string"_s, {}, value, true, false}).value();
        model.properties.append({property, {}, name, {}, value, u"string"_s, {}, {}});
        return bool(property);
    }

    bool editProperty()
    {
        Item *const property = any(model.properties);
        if (property == nullptr)
            return true;
        const PropertyId id {property->id};
        switch (random.bounded(3)) {
        case 0:
            return document.properties().setName(id, property->name = unique(text())).isOk();
        case 1:
            return document.properties().setCategory(id, property->category = text()).isOk();
        default:
            return document.properties().setValue(id, property->value = text()).isOk();
        }
    }

    bool writeBuild()
    {
        if (random.bounded(4) == 0)
            return document.builds()
                .setActiveName(model.active = random.bounded(2) != 0 ? QString() : text())
                .isOk();
        BuildDescription build {random.bounded(2) != 0 ? u"A"_s : u"B"_s, text(), {}, {}};
        for (int i = random.bounded(3); i > 0; --i)
            build.macros.append({text(), text()});
        for (int i = random.bounded(4); i > 0; --i)
            build.steps.append({text(), text(), {text()}, {text(), text()}});
        for (BuildDescription &known : model.builds) {
            if (known.name == build.name)
                return document.builds().write(known = build).isOk();
        }
        model.builds.append(build);
        return document.builds().write(build).isOk();
    }

    bool share()
    {
        Item *const item = any(random.bounded(3) == 0       ? model.folders
                                   : random.bounded(2) == 0 ? model.properties
                                                            : model.files);
        if (item == nullptr)
            return true;
        const QString name = random.bounded(2) != 0 ? u"k"_s : u"l"_s;
        for (qsizetype i = 0; i < item->shared.size(); ++i) {
            if (item->shared[i].name == name) {
                if (random.bounded(2) != 0) {
                    item->shared.removeAt(i);
                    return document.sharedValues().remove(item->id, name);
                }
                item->shared[i] = {name, u"int"_s, text()};
                return document.sharedValues().set(item->id, item->shared[i]).isOk();
            }
        }
        item->shared.append({name, u"string"_s, text()});
        return document.sharedValues().set(item->id, item->shared.last()).isOk();
    }

    bool remove()
    {
        switch (random.bounded(4)) {
        case 0:
            if (Item *const file = any(model.files)) {
                document.files().remove({file->id});
                model.files.removeAt(file - model.files.data());
            }
            return true;
        case 1:
            if (Item *const folder = any(model.folders)) {
                document.folders().remove({folder->id});
                model.folders.removeAt(folder - model.folders.data());
            }
            return true;
        case 2:
            if (Item *const property = any(model.properties)) {
                document.properties().remove({property->id});
                model.properties.removeAt(property - model.properties.data());
            }
            return true;
        default:
            if (!model.builds.isEmpty())
                return document.builds().remove(model.builds.takeFirst().name);
            return true;
        }
    }

    ComponentDocument &document;
    Model &model;
    QRandomGenerator random;
    int counter = 0;
};

} // namespace

class tst_ComponentRandom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void edits_data();
    void edits();
};

void tst_ComponentRandom::edits_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<quint32>("seed");
    const QByteArray body =
        "  <!-- c -->\n  <i:model/>\n  <i:fileSets>\n    <i:fileSet>\n"
        "      <i:name>rtl</i:name>\n      <i:file>\n        <i:name>old.v</i:name>\n"
        "        <i:fileType>verilogSource</i:fileType>\n      </i:file>\n"
        "    </i:fileSet>\n  </i:fileSets>\n  <i:parameters>\n    <i:parameter>\n"
        "      <i:name>p</i:name>\n      <i:value>1</i:value>\n    </i:parameter>\n"
        "  </i:parameters>\n";
    const QByteArray foreign =
        "  <i:vendorExtensions>\n    <o:x xmlns:o='o'/>\n  </i:vendorExtensions>\n";
    for (quint32 seed = 1; seed <= 6; ++seed) {
        for (const char *const generation : {"1.5", "1685-2009", "1685-2014", "1685-2022"})
            QTest::addRow("random-%u in %s", seed, generation)
                << component(body, generation) << seed;
        QTest::addRow("random-%u beside extensions of others", seed)
            << component(body + foreign) << seed;
        QTest::addRow("random-%u on one line", seed)
            << component(body).replace("\n", "").replace("  ", "") << seed;
        QTest::addRow("random-%u in Latin-1 with CRLF", seed)
            << component(body).replace("?>", " encoding='ISO-8859-1'?>").replace("\n", "\r\n")
            << seed;
    }
}

void tst_ComponentRandom::edits()
{
    QFETCH(QByteArray, bytes);
    QFETCH(quint32, seed);
    const auto document = open(bytes);
    QVERIFY(document);
    Model model;
    for (const DesignField field : allFields)
        model.texts.insert(field, document->text(field));
    model.files.append(
        {document->files().files().first(), u"rtl"_s, u"old.v"_s, {}, {}, {}, {}, {}});
    model.properties.append(
        {document->properties().properties().first(), {}, u"p"_s, {}, u"1"_s, u"string"_s, {}, {}});
    Editor editor(*document, model, seed);
    for (int step = 0; step < 500; ++step) {
        QVERIFY(editor.step());
        if (step % 25 != 0)
            continue;
        const QStringList expected = written(model, {u"rtl"_s, u"docs"_s});
        QCOMPARE(written(*document), expected);
        const auto again = open(document->bytes());
        QVERIFY2(again, document->bytes().constData());
        QCOMPARE(written(*again), expected);
        QCOMPARE(again->bytes(), document->bytes());
    }
}

APPLESS_TEST_CLASS(tst_ComponentRandom)
#include "tst_ComponentRandom.moc"
