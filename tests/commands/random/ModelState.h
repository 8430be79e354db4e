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

    static ModelAnswer either(bool good, const QString &right, const QString &wrong);
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

// What is known of a design, and what all commands ask of it.
struct ModelState
{
    // The design's name is "d"; designsFolder holds its working folder.
    explicit ModelState(const QString &designsFolder);

    QList<ModelPath> filePaths() const;
    QList<ModelPath> folderPaths() const;
    bool isPath(const ModelKind &kind) const { return &kind != &properties; }
    ModelPath pathOf(const ModelKind &kind, const QString &word) const;
    QString keyOf(const ModelKind &kind, const QString &word) const;
    QList<ModelItem> inOrder(const ModelKind &kind) const;
    QString categoryOf(const ModelItem &item) const;
    // Why an item cannot be added; empty when it can.
    QString addRefusal(const ModelKind &kind, const QString &word) const;
    ModelAnswer usage(const QString &about, const QString &word) const;

    const QStringList fileSets {QStringLiteral("rtl"), QStringLiteral("testbench"),
                                QStringLiteral("constraints"), QStringLiteral("documents")};
    ModelDisk disk;
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
