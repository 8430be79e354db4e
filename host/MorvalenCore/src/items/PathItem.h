#pragma once

#include "items/DesignState.h"
#include "items/ItemTable.h"
#include "items/pathkinds.h"
#include "items/SharedPropertyKeeper.h"

#include <Qtilities/categorytext.h>
#include <Qtilities/Observer.h>
#include <Qtilities/statuslog.h>

#include <QDynamicPropertyChangeEvent>

#include <algorithm>

namespace MorvalenCore {

// An item of a design that stands for a path, kept in the design's document: what files and
// folders have in common. One item for all elements of a path there. Base is the public class, Id
// what names an element, Items the collection that the item is in.
template <typename Base, typename Id, typename Items>
class PathItem : public Base
{
public:
    PathItem(Items &owner, DesignState &designState, const QString &actualPath)
        : Base(nullptr),
          items(owner),
          state(designState),
          path(actualPath),
          shared(this, designState)
    {
    }

    QString getName(const Qtilities::Core::Observer *) const override { return this->fileName(); }

    // The name is the path's. That it cannot be another is not worth a warning.
    Qtilities::Core::Status trySetName(const QString &name) override
    {
        using Qtilities::Core::Status;
        return name == this->fileName() ? Status() : Status(Status::Kind::Unsupported, QString());
    }

    Qtilities::Core::QtilitiesCategory category() const override
    {
        return Qtilities::Core::categoryFrom(part().category(entries.first()));
    }

    Qtilities::Core::Status
    trySetCategory(const Qtilities::Core::QtilitiesCategory &category) override
    {
        return state.change([&] {
            const Qtilities::Core::Status entered = enterDocument();
            if (!entered.isOk())
                return entered;
            return part().setCategory(entries.first(), textOf(category));
        });
    }

    QString actualPath() const override { return path; }
    Qtilities::Core::Status trySetActualPath(const QString &newPath) override
    {
        return items.move(this, newPath);
    }

    bool existsOnDisk() const override { return isItemOnDisk(state, path, kindOf(Id())); }

    Qtilities::Core::Status tryRemoveFromComputer(bool permanently) override
    {
        return removeItemFromDisk(state, path, kindOf(Id()), permanently);
    }

    QString versionControlRevision() const override { return itemHistory(state, path).revision; }
    QString versionControlSystemName() const override
    {
        return itemHistory(state, path).systemName;
    }
    AbstractDesignLinkedItem::StateLookup stateLookup() const override
    {
        return itemStateLookup(state, path, kindOf(Id()));
    }

    // Gives an item that stands for no element one, so that the document can keep what is said
    // of it. Fails when the document refuses.
    virtual Qtilities::Core::Status enterDocument() { return {}; }

    // The elements in the document, in its order.
    const Elements<Id> &elements() const { return entries; }

    // For the collection: takes up an element, and the path that the elements got.
    void addElement(Id element)
    {
        entries.append(element);
        shared.load(element);
    }
    void replaceElement(Id oldId, Id newId)
    {
        std::replace(entries.begin(), entries.end(), oldId, newId);
    }
    void setKnownPath(const QString &newPath) { path = newPath; }

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange) {
            const QByteArray key =
                static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName();
            if (entries.isEmpty() && shared.isNew(key))
                Qtilities::Logging::logStatus(state.change([this] { return enterDocument(); }),
                                              Qtilities::Logging::Logger::Warning);
            shared.propertyChanged(key, QList<ItemId>(entries.cbegin(), entries.cend()));
        }
        return Base::event(event);
    }

    auto &part() const { return partOf(state.document(), Id()); }
    Id firstElement() const { return entries.first(); }
    Items &owner() const { return items; }

private:
    Items &items;
    DesignState &state;
    QString path;
    Elements<Id> entries;
    SharedPropertyKeeper shared;
};

} // namespace MorvalenCore
