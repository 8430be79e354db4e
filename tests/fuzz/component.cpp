// Component files: whatever the bytes are, they are refused with a sentence, or they are a document
// that stays as it is, can be edited, and says the same when it is read again.

#include "tests/fuzz/Fuzzing.h"
#include "tests/fuzz/Mutator.h"
#include "tests/host/MorvalenCore/componenttexts.h"
#include "tests/host/MorvalenCore/writtendocument.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QtEndian>

using namespace MorvalenCore;
using namespace Qt::Literals::StringLiterals;
using WrittenDocument::allFields;
using WrittenDocument::written;

namespace {

const QString path = u"/d/component.xml"_s;
constexpr int editsOfAnInput = 12;

QList<QByteArray> goodOnes()
{
    const QByteArray body =
        "  <!-- c -->\n  <i:model><i:left>id1 + 2</i:left></i:model>\n  <i:fileSets>\n    "
        "<i:fileSet>\n      <i:name>rtl</i:name>\n      <i:group>g</i:group>\n      <i:file>\n"
        "        <i:name>old.v</i:name>\n        <i:fileType>verilogSource</i:fileType>\n"
        "        <i:buildCommand><i:command>cc</i:command></i:buildCommand>\n      </i:file>\n"
        "    </i:fileSet>\n  </i:fileSets>\n  <i:parameters>\n"
        "    <i:parameter parameterId='id1'>\n      <i:name>p</i:name>\n"
        "      <i:value>1</i:value>\n    </i:parameter>\n  </i:parameters>\n"
        "  <i:vendorExtensions>\n    <o:x xmlns:o='o'/>\n  </i:vendorExtensions>\n";
    QList<QByteArray> all;
    for (const char *generation : {"1.4", "1.5", "1685-2009", "1685-2014", "1685-2022"})
        all.append(ComponentTexts::component(body, generation));
    all.append(QByteArray(all.last()).replace("?>", " encoding='ISO-8859-1'?>"));
    for (const char *name : {"checksum", "counter", "fifo", "uart"}) {
        QFile file(
            QStringLiteral(SOURCE_DIR "/examples/%1/component.xml").arg(QString::fromLatin1(name)));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("cannot read %s", qPrintable(file.fileName()));
        all.append(file.readAll());
    }
    return all;
}

const QList<QByteArray> words {"<i:file>",
                               "</i:file>",
                               "<i:name>x</i:name>",
                               "<i:fileSets>",
                               "</i:fileSets>",
                               "<i:parameter i:id='a:b-c'>",
                               "<![CDATA[",
                               "]]>",
                               "<!--",
                               "-->",
                               "<?pi x?>",
                               "<!DOCTYPE a [<!ENTITY b 'c'>]>",
                               "&lt;",
                               "&#0;",
                               "&#xD800;",
                               "&#x10FFFF;",
                               "&unknown;",
                               " xmlns='urn:x'",
                               " xmlns:i=''",
                               " i:x='1' i:x='2'",
                               "<mv:design xmlns:mv='urn:morvalen:host:1' readOnly='true'>",
                               "</mv:design>",
                               "<mv:item category='a::::b' generatedBy='x'/>",
                               "<mv:buildConfigurations active='A'>",
                               "<mv:step name='s'><mv:command>$(X)</mv:command></mv:step>",
                               "encoding='UTF-16'",
                               "version='1.1'",
                               "standalone='yes'",
                               "1685-2014",
                               "spirit:"};

// A few edits of a document, always the same ones for the same input.
class Edits
{
public:
    Edits(ComponentDocument &editedDocument, const QByteArray &input)
        : document(editedDocument),
          random(qFromLittleEndian<quint32>(
              QCryptographicHash::hash(input, QCryptographicHash::Md5).constData()))
    {
    }

    void make()
    {
        for (int edit = 0; edit < editsOfAnInput; ++edit)
            makeOne();
    }

private:
    QString text()
    {
        static const QStringList texts {u"a"_s, u" <&\"'>]]> "_s, u"\u20ac\n\U0001F600"_s, u""_s,
                                        u"\ufeff"_s};
        return texts[random.bounded(int(texts.size()))];
    }

    template <typename Id>
    Id any(const QList<Id> &all)
    {
        return all.isEmpty() ? Id() : all[random.bounded(int(all.size()))];
    }

    void makeOne()
    {
        const int kind = random.bounded(12);
        if (kind < 7)
            addOne(kind);
        else
            changeOne(kind);
    }

    void addOne(int kind)
    {
        switch (kind) {
        case 0:
            tried(document.setText(any(allFields), text()));
            break;
        case 1:
            document.setReadOnly(random.bounded(2));
            break;
        case 2:
            add(random.bounded(2) ? any(document.files().fileSets())
                                  : document.files().addFileSet(text()).valueOr({}));
            break;
        case 3:
            tried(document.folders().add(text(), text()));
            break;
        case 4:
            tried(document.properties().add({text(), u"int"_s, text(), text(), true, false}));
            break;
        case 5:
            tried(document.builds().write(
                {text(), text(), {{text(), text()}}, {{text(), text(), {}, {}}}}));
            break;
        default:
            tried(document.builds().setActiveName(text()));
        }
    }

    void changeOne(int kind)
    {
        const FileId file = any(document.files().files());
        const FolderId folder = any(document.folders().folders());
        const PropertyId property = any(document.properties().properties());
        switch (kind) {
        case 7:
            change(file);
            break;
        case 8:
            if (folder)
                tried(document.folders().setPath(folder, text()));
            break;
        case 9:
            if (property)
                tried(document.properties().setValue(property, text()));
            break;
        case 10:
            share(file ? ItemId(file) : folder ? ItemId(folder) : ItemId(property));
            break;
        default:
            remove(file, folder, property);
        }
    }

    // What is refused changes nothing.
    template <typename Answer>
    static void tried(const Answer &)
    {
    }

    void add(FileSetId set)
    {
        if (set)
            tried(document.files().add(u"new "_s + text(), set));
    }

    void change(FileId file)
    {
        if (!file)
            return;
        if (random.bounded(2))
            tried(document.files().setPath(file, text()));
        else if (random.bounded(2))
            tried(document.files().setCategory(file, text()));
        else
            tried(document.files().setGenerated(file, GeneratedInfo {text(), text()}));
    }

    void share(ItemId item)
    {
        if (item)
            tried(document.sharedValues().set(item, {text(), u"string"_s, text()}));
    }

    void remove(FileId file, FolderId folder, PropertyId property)
    {
        if (file && random.bounded(2))
            document.files().remove(file);
        else if (folder && random.bounded(2))
            document.folders().remove(folder);
        else if (property && document.properties().isRemovable(property))
            document.properties().remove(property);
    }

    ComponentDocument &document;
    QRandomGenerator random;
};

class Components : public Subject
{
public:
    QByteArray make(QRandomGenerator &random) override { return mutator.make(random); }

    QString finding(const QByteArray &input) override
    {
        const auto opened = ComponentDocument::fromBytes(input, path);
        const QString sentence = opened.status().text();
        if (!opened.isOk() && (!sentence.startsWith(path + u':') || sentence.contains(u'\n')))
            return u"is refused with \"%1\""_s.arg(sentence);
        if (!opened.isOk())
            return {};
        ComponentDocument &document = *opened.value();
        if (document.bytes() != input)
            return u"has other bytes without an edit"_s;
        if (const QString wrong = readAgain(document); !wrong.isEmpty())
            return u"without an edit, "_s + wrong;
        Edits(document, input).make();
        return readAgain(document);
    }

private:
    static QString readAgain(const ComponentDocument &document)
    {
        const auto again = ComponentDocument::fromBytes(document.bytes(), path);
        if (!again.isOk())
            return u"cannot be read again: "_s + again.status().text();
        const QStringList before = written(document);
        const QStringList after = written(*again.value());
        for (qsizetype line = 0; line < qMax(before.size(), after.size()); ++line) {
            if (before.value(line) != after.value(line))
                return u"says \"%1\", and \"%2\" when it is read again"_s.arg(before.value(line),
                                                                              after.value(line));
        }
        return again.value()->bytes() == document.bytes() ? QString()
                                                          : u"changes when it is read again"_s;
    }

    const Mutator mutator {goodOnes(), words};
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    Components components;
    return Fuzzing(u"fuzz_component"_s, components).run(QCoreApplication::arguments().sliced(1));
}
