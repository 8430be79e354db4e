#pragma once

#include "tests/fakes/Journal.h"

#include <MorvalenCore/DesignProperty.h>

#include <QDynamicPropertyChangeEvent>

// A property that does as its public members say.
class FakeDesignProperty : public MorvalenCore::DesignProperty
{
public:
    FakeDesignProperty(Journal &theJournal, const QString &theName, const QVariant &theValue = {})
        : name(theName),
          data(theName, theValue),
          journal(theJournal)
    {
    }

    QString getName(const Qtilities::Core::Observer * = nullptr) const override { return name; }
    bool setName(const QString &newName, Qtilities::Core::Observer *context = nullptr) override
    {
        return journal.perform(
            callText("property.setName",
                     {newName, context ? QStringLiteral("context") : QStringLiteral("null")}),
            [&] { name = newName; });
    }
    Qtilities::Core::QtilitiesCategory category() const override { return levels; }
    bool setCategory(const Qtilities::Core::QtilitiesCategory &category) override
    {
        return journal.perform(
            callText("property.setCategory", {category.toString(QStringLiteral("/"))}),
            [&] { levels = category; });
    }
    Qtilities::Core::QtilitiesProperty propertyData() const override { return data; }
    void setValue(const QVariant &value) override
    {
        journal.perform(callText("property.setValue",
                                 {QString::fromLatin1(value.typeName()), value.toString()}),
                        [&] { data.setValue(value); });
    }

    // For the window, which asks for the reason: the same calls.
    Qtilities::Core::Status trySetName(const QString &newName) override
    {
        return outcome(setName(newName));
    }
    Qtilities::Core::Status
    trySetCategory(const Qtilities::Core::QtilitiesCategory &category) override
    {
        return outcome(setCategory(category));
    }
    Qtilities::Core::Status trySetValue(const QVariant &value) override
    {
        setValue(value);
        return {};
    }

    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange) {
            const QByteArray changed =
                static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName();
            journal.perform(callText("property.setProperty", {QString::fromUtf8(changed)}));
        }
        return MorvalenCore::DesignProperty::event(event);
    }

    QString name;
    Qtilities::Core::QtilitiesProperty data;
    Qtilities::Core::QtilitiesCategory levels;

private:
    static Qtilities::Core::Status outcome(bool done)
    {
        using Qtilities::Core::Status;
        return done ? Status() : Status::failed(QStringLiteral("It refuses that"));
    }

    Journal &journal;
};
