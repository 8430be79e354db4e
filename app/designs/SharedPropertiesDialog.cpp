#include "app/designs/SharedPropertiesDialog.h"

#include "app/calls/HostCall.h"
#include "app/designs/PropertyDialog.h"
#include "app/designs/rowtexts.h"
#include "app/journal/journaling.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/ObjectManager.h>
#include <Qtilities/statuslog.h>

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using Qtilities::Core::ObjectManager;
using Qtilities::Core::QtilitiesProperty;
using Qtilities::Core::SharedProperty;
using Qtilities::Core::Status;
using Qtilities::Logging::StatusCollector;

namespace {

// In characters and lines.
constexpr int usualWidth = 70;
constexpr int usualHeight = 14;

} // namespace

SharedPropertiesDialog::SharedPropertiesDialog(const TreeRow &itemRow, QWidget *parent)
    : QDialog(parent),
      row(itemRow),
      list(new QTreeWidget(this))
{
    setObjectName(u"sharedPropertiesDialog"_s);
    setWindowTitle(tr("Shared Properties of \"%1\"").arg(rowtexts::name(row)));
    list->setAccessibleName(tr("Shared properties"));
    list->setHeaderLabels({tr("Name"), tr("Type"), tr("Value")});
    list->setRootIsDecorated(false);
    auto *column = new QWidget(this);
    makeButtons(column);
    auto *above = new QHBoxLayout;
    above->addWidget(list, 1);
    above->addWidget(column);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(above);
    layout->addWidget(buttons);

    connect(list, &QTreeWidget::currentItemChanged, this, &SharedPropertiesDialog::updateButtons);
    connect(list, &QTreeWidget::itemActivated, this, &SharedPropertiesDialog::change);
    const DesignManager *manager = DesignManager::instance();
    connect(manager, &DesignManager::designChanged, this, &SharedPropertiesDialog::refresh);
    connect(manager, &DesignManager::designClosed, this, &SharedPropertiesDialog::refresh);
    resize(fontMetrics().averageCharWidth() * usualWidth,
           fontMetrics().lineSpacing() * usualHeight);
    refresh();
}

void SharedPropertiesDialog::makeButtons(QWidget *column)
{
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    const auto make = [&](const QString &text, void (SharedPropertiesDialog::*slot)()) {
        auto *button = new QPushButton(text, column);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, slot);
        layout->addWidget(button);
        return button;
    };
    addButton = make(tr("&Add..."), &SharedPropertiesDialog::add);
    changeButton = make(tr("&Change..."), &SharedPropertiesDialog::change);
    removeButton = make(tr("&Remove"), &SharedPropertiesDialog::remove);
    layout->addStretch();
}

void SharedPropertiesDialog::refresh()
{
    if (!row.isThere()) {
        reject();
        return;
    }
    const QString current = currentName();
    list->clear();
    const QStringList names = ObjectManager::sharedPropertyNames(row.item);
    for (const QString &name : names) {
        const QVariant value =
            ObjectManager::getSharedProperty(row.item, name.toUtf8().constData()).value();
        auto *line =
            new QTreeWidgetItem(list, {name, QtilitiesProperty::typeName(value), value.toString()});
        if (name == current)
            list->setCurrentItem(line);
    }
    updateButtons();
}

void SharedPropertiesDialog::updateButtons()
{
    const bool writable = row.isThere() && !row.design()->isReadOnly();
    const SharedProperty property =
        ObjectManager::getSharedProperty(row.item, currentName().toUtf8().constData());
    addButton->setEnabled(writable);
    changeButton->setEnabled(writable && property.isValid() && !property.isReadOnly());
    removeButton->setEnabled(writable && property.isValid() && property.isRemovable());
}

QString SharedPropertiesDialog::currentName() const
{
    const QTreeWidgetItem *current = list->currentItem();
    return current ? current->text(0) : QString();
}

void SharedPropertiesDialog::add()
{
    PropertyDialog dialog(PropertyDialog::SharedProperty, this);
    if (dialog.exec() == QDialog::Accepted)
        store(dialog.name(), dialog.value());
}

void SharedPropertiesDialog::change()
{
    if (!changeButton->isEnabled())
        return;
    const QString name = currentName();
    PropertyDialog dialog(PropertyDialog::SharedProperty, this);
    dialog.setProperty(
        name, ObjectManager::getSharedProperty(row.item, name.toUtf8().constData()).value());
    if (dialog.exec() == QDialog::Accepted)
        store(name, dialog.value());
}

void SharedPropertiesDialog::store(const QString &name, const QVariant &value)
{
    if (!row.isThere())
        return;
    {
        HostCall attempt(this, tr("Not Changed"));
        const StatusCollector refused;
        const bool done = ObjectManager::setSharedProperty(
            row.item, SharedProperty(name.toUtf8().constData(), value));
        if (!done && refused.statuses().isEmpty())
            attempt.take(Status::invalidArgument({}));
        attempt.take(refused.statuses());
        if (done && refused.statuses().isEmpty())
            journaling::sharedSet(*row.design(), rowtexts::kindWord(row), rowtexts::itemWord(row),
                                  name, value);
    }
    refresh();
}

void SharedPropertiesDialog::remove()
{
    if (!removeButton->isEnabled() || !row.isThere())
        return;
    {
        HostCall attempt(this, tr("Not Removed"));
        const StatusCollector refused;
        const QString name = currentName();
        row.item->setProperty(name.toUtf8().constData(), QVariant());
        attempt.take(refused.statuses());
        if (refused.statuses().isEmpty())
            journaling::sharedRemoved(*row.design(), rowtexts::kindWord(row),
                                      rowtexts::itemWord(row), name);
    }
    refresh();
}
