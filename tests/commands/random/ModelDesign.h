#pragma once

#include "tests/commands/random/ModelDisk.h"

#include <QList>
#include <QMap>
#include <QStringList>
#include <QVariant>

// What a call should answer; of some texts only how they begin, such as a usage text.
struct ModelAnswer
{
    int code = 0;
    QString text;
    bool isBeginning = false;
};

// A path as it is typed, what it should come to, and where a new file of that path belongs.
struct ModelPath
{
    QString word;
    QString actual;
    QString node;
    QString category;
};

// One item as the model has it. The key is the actual path of a file or folder, or the name of a
// property.
struct ModelItem
{
    QString key;
    QString node;
    QString category;
    QMap<QString, QVariant> shared;
};

// What is told of all items of one kind.
struct ModelKind
{
    QString word; // "file"
    QString plural; // "files"
    QString counted; // "file(s)"
    QString sharedOf; // What texts about shared properties call it.
    QList<ModelItem> items;
    QString active;

    ModelItem *find(const QString &key);
    void remove(const QString &key);
};

// What a new design of the structure Hardware should be, and answer, after any commands: the
// simplest thing that can know it. Words are of the vocabulary, and from any other word nothing is
// known. It answers a call and does what the call does.
class ModelDesign
{
public:
    // The design's name is "d"; designsFolder holds its working folder.
    explicit ModelDesign(const QString &designsFolder);

    ModelAnswer answer(const QStringList &words);

    // What happens to the design and to the disk besides.
    void reopened();
    ModelDisk disk;

    QString folder() const { return workingFolder; }
    QList<ModelPath> filePaths() const;
    QList<ModelPath> folderPaths() const;
    // Calls that change nothing and together tell all there is to tell.
    QList<QStringList> questions() const;

private:
    // design
    ModelAnswer designAnswer(const QStringList &words);
    ModelAnswer setAttribute(const QStringList &words);
    QString attribute(const QString &name) const;
    // files, folders, properties
    ModelAnswer collectionAnswer(ModelKind &kind, const QStringList &words);
    ModelAnswer add(ModelKind &kind, const QString &word);
    ModelAnswer remove(ModelKind &kind, const QString &word);
    ModelAnswer erase(ModelKind &kind, const QString &word);
    ModelAnswer removeAll(ModelKind &kind, const QString &node);
    ModelAnswer eraseAll(ModelKind &kind, const QString &node);
    ModelAnswer list(const ModelKind &kind, const QString &node) const;
    ModelAnswer setProperty(const QStringList &words);
    QStringList keysUnder(const ModelKind &kind, const QString &node) const;
    QList<ModelItem> inOrder(const ModelKind &kind) const;
    QString addRefusal(const ModelKind &kind, const QString &word) const;
    bool eraseFromDisk(const ModelKind &kind, const QString &key);
    // sfile, sfolder, sproperty
    ModelAnswer itemAnswer(ModelKind &kind, const QStringList &words);
    ModelAnswer getItem(const ModelKind &kind, const ModelItem &item, const QString &what) const;
    ModelAnswer setItem(ModelKind &kind, ModelItem &item, const QStringList &words);
    ModelAnswer shared(const ModelKind &kind, ModelItem &item, const QStringList &words);
    ModelAnswer setShared(const QString &about, ModelItem &item, const QStringList &words);
    ModelAnswer overviewAnswer() const;

    bool isPath(const ModelKind &kind) const { return &kind != &properties; }
    ModelPath pathOf(const ModelKind &kind, const QString &word) const;
    QString keyOf(const ModelKind &kind, const QString &word) const;
    QString categoryOf(const ModelItem &item) const;
    ModelAnswer usage(const QString &about, const QString &word) const;

    QString designs;
    QString workingFolder;
    QMap<QString, QString> texts;
    bool readOnly = false;
    bool busy = false;
    ModelKind files {QStringLiteral("file"),
                     QStringLiteral("files"),
                     QStringLiteral("file(s)"),
                     QStringLiteral("file"),
                     {},
                     {}};
    ModelKind folders {QStringLiteral("folder"),
                       QStringLiteral("folders"),
                       QStringLiteral("folder(s)"),
                       QStringLiteral("folder"),
                       {},
                       {}};
    ModelKind properties {QStringLiteral("property"),
                          QStringLiteral("properties"),
                          QStringLiteral("properties"),
                          QStringLiteral("design property"),
                          {},
                          {}};
};
