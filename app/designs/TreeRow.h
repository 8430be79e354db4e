#pragma once

#include <MorvalenCore/IDesign.h>

#include <QObject>
#include <QPointer>
#include <QString>

// What a row of the tree of open designs stands for. The first ones have rows below them.
enum class RowKind {
    Root,
    Design,
    Files,
    Node,
    Folders,
    Properties,
    Builds,
    File,
    Folder,
    Property,
    Configuration
};

// A row of the tree of open designs, as a value that may be kept: what it stands for can be gone
// at any time, and is null then.
struct TreeRow
{
    RowKind kind = RowKind::Root;
    QPointer<QObject> designObject;
    // Of a node.
    QString name;
    // Of a file, folder, property or configuration.
    QPointer<QObject> item;
    // Whether the design, or the item in its design, is active.
    bool active = false;

    MorvalenCore::Interfaces::IDesign *design() const
    {
        return qobject_cast<MorvalenCore::Interfaces::IDesign *>(designObject.data());
    }
    MorvalenCore::DesignFile *file() const { return as<MorvalenCore::DesignFile>(); }
    MorvalenCore::DesignFolder *folder() const { return as<MorvalenCore::DesignFolder>(); }
    MorvalenCore::DesignProperty *property() const { return as<MorvalenCore::DesignProperty>(); }
    MorvalenCore::BuildConfiguration *configuration() const
    {
        return as<MorvalenCore::BuildConfiguration>();
    }

    bool isItem() const { return kind >= RowKind::File; }
    // Whether what the row stands for is still there, in a design that is still open.
    bool isThere() const;

private:
    template <typename Item>
    Item *as() const
    {
        return qobject_cast<Item *>(item.data());
    }
};
