#pragma once

#include "tests/fakes/FakeDesign.h"

#include <Qtilities/IFactoryProvider.h>
#include <Qtilities/InstanceFactoryInfo.h>

// A factory of fake designs, which notes when one of them is destroyed while it is watched.
class FakeDesignFactory : public Qtilities::Core::Interfaces::IFactoryProvider
{
public:
    enum Product { Design, NothingAtAll, PlainObject };

    explicit FakeDesignFactory(Journal &theJournal) : journal(theJournal) { }

    QString factoryName() const override { return QStringLiteral("Design Factory"); }
    QStringList instanceTags() const override { return {}; }
    QObject *createInstance(const Qtilities::Core::InstanceFactoryInfo &info) override
    {
        journal.perform(callText("factory.createInstance",
                                 {info.factoryTag, info.instanceTag, info.instanceName}));
        if (product == NothingAtAll)
            return nullptr;
        QObject *made = product == PlainObject ? new QObject
                                               : new FakeDesign(journal, QStringLiteral("unnamed"));
        QObject::connect(made, &QObject::objectNameChanged, [this](const QString &name) {
            journal.perform(callText("product.setObjectName", {name}));
        });
        if (watching) {
            QObject::connect(made, &QObject::destroyed,
                             [this] { journal.perform(callText("product.destroyed")); });
        }
        return made;
    }

    Product product = Design;
    bool watching = true;

private:
    Journal &journal;
};
