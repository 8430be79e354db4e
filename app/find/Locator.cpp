#include "app/find/Locator.h"

#include "commands/commandmanuals.h"

#include <MorvalenCore/DesignFile.h>
#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/IDesign.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignFile;
using MorvalenCore::DesignManager;

namespace {

constexpr QSize usualSize(640, 420);

void addFile(QList<LocatorModel::Entry> *entries, LocatorModel::Kind kind, const QString &path)
{
    const qsizetype slash = path.lastIndexOf(u'/');
    entries->append({kind, path.sliced(slash + 1), path.left(slash), path});
}

QList<LocatorModel::Entry> ofDesigns()
{
    QList<LocatorModel::Entry> entries;
    const DesignManager *manager = DesignManager::instance();
    for (const QString &id : manager->openDesignIds()) {
        const auto *design = manager->design(id);
        if (!design)
            continue;
        entries.append({LocatorModel::Design, design->name(), id, id});
        for (const DesignFile *file : design->filesUnderNode(QString(), true))
            addFile(&entries, LocatorModel::File, file->actualPath());
    }
    return entries;
}

} // namespace

Locator::Locator(QWidget *parent)
    : QDialog(parent),
      model(new LocatorModel(this)),
      field(new QLineEdit(this)),
      list(new QListView(this))
{
    setObjectName(u"locator"_s);
    setWindowTitle(tr("Go To"));
    resize(usualSize);
    field->setObjectName(u"locatorText"_s);
    field->setAccessibleName(tr("Name"));
    field->setPlaceholderText(tr("Part of the name of a file, design, command, script or setting"));
    list->setObjectName(u"locatorList"_s);
    list->setAccessibleName(tr("Found"));
    list->setModel(model);
    list->setUniformItemSizes(true);
    list->setFocusPolicy(Qt::NoFocus);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(field);
    layout->addWidget(list);
    field->installEventFilter(this);
    connect(field, &QLineEdit::textChanged, this, &Locator::filter);
    connect(field, &QLineEdit::returnPressed, this, &Locator::choose);
    connect(list, &QListView::clicked, this, &Locator::choose);
}

void Locator::begin(const QStringList &scripts, const QStringList &settings)
{
    QList<LocatorModel::Entry> entries = ofDesigns();
    for (const commands::CommandManual &manual : commands::commandManuals())
        entries.append({LocatorModel::Command, manual.word, {}, manual.word});
    for (const QString &script : scripts)
        addFile(&entries, LocatorModel::Script, script);
    for (const QString &setting : settings)
        entries.append({LocatorModel::Setting, setting, {}, setting});
    model->setEntries(entries);
    field->clear();
    filter(QString());
    open();
    field->setFocus();
}

void Locator::filter(const QString &text)
{
    model->filter(text);
    list->setCurrentIndex(model->index(0, 0));
}

void Locator::choose()
{
    const QModelIndex index = list->currentIndex();
    if (!index.isValid())
        return;
    const LocatorModel::Entry entry = model->entry(index.row());
    accept();
    Q_EMIT chosen(entry.kind, entry.target);
}

// The list follows the keys of the field.
bool Locator::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent *>(event)->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QCoreApplication::sendEvent(list, event);
            return true;
        default:
            break;
        }
    }
    return QDialog::eventFilter(watched, event);
}
