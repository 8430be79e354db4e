#include "app/DesignsMode.h"

#include "app/editor/EditorArea.h"

#include <MorvalenCore/DesignManager.h>

#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QStackedLayout>
#include <QTimer>
#include <QTreeWidget>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;

namespace {

const QString modeIconFile = u":/morvalen/designs_mode.png"_s;

enum Column { NameColumn, VersionColumn, LibraryColumn, VendorColumn, TypeColumn, FolderColumn };

QTreeWidgetItem *rowOf(const IDesign &design, bool active)
{
    auto *row = new QTreeWidgetItem({
        design.name(),
        design.version(u"."_s),
        design.library(),
        design.vendor(),
        design.designType(),
        QDir::toNativeSeparators(design.workingFolderPath()),
    });
    row->setIcon(NameColumn, QIcon(modeIconFile));
    row->setToolTip(NameColumn, design.description());
    QFont font;
    font.setBold(active);
    for (int column = 0; column < row->columnCount(); ++column)
        row->setFont(column, font);
    row->setData(NameColumn, Qt::UserRole, design.id(u"."_s));
    return row;
}

QTreeWidget *makeTree(QWidget *parent)
{
    auto *tree = new QTreeWidget(parent);
    tree->setObjectName(u"designs"_s);
    tree->setHeaderLabels({DesignsMode::tr("Name"), DesignsMode::tr("Version"),
                           DesignsMode::tr("Library"), DesignsMode::tr("Vendor"),
                           DesignsMode::tr("Type"), DesignsMode::tr("Folder")});
    tree->setRootIsDecorated(false);
    tree->setUniformRowHeights(true);
    tree->setAlternatingRowColors(true);
    tree->setFrameShape(QFrame::NoFrame);
    tree->setStyleSheet(u"QTreeView::item, QHeaderView::section { padding: 4px 10px 4px 4px; }"_s);
    tree->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    return tree;
}

QLabel *makeHint(QWidget *parent)
{
    auto *hint = new QLabel(
        DesignsMode::tr("<h3>No design is open</h3>"
                        "<p>Open a component file with <b>File &gt; Open</b>, or make a design "
                        "in the console:</p><pre>designs new uart \"Hardware Design\"</pre>"),
        parent);
    hint->setAlignment(Qt::AlignCenter);
    hint->setForegroundRole(QPalette::PlaceholderText);
    return hint;
}

} // namespace

DesignsMode::DesignsMode(QWidget *parent)
    : QWidget(parent),
      editors(new EditorArea(this)),
      pages(new QStackedLayout),
      designs(makeTree(this)),
      refreshTimer(new QTimer(this))
{
    auto *left = new QWidget(this);
    left->setLayout(pages);
    auto *splitter = new QSplitter(this);
    splitter->addWidget(left);
    splitter->addWidget(editors);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
    pages->addWidget(makeHint(this));
    pages->addWidget(designs);
    connect(designs, &QTreeWidget::itemActivated, this, [this](const QTreeWidgetItem *row) {
        activateDesign(row->data(NameColumn, Qt::UserRole).toString());
    });

    // However many changes a script makes, the list is made anew once.
    refreshTimer->setSingleShot(true);
    connect(refreshTimer, &QTimer::timeout, this, &DesignsMode::refresh);
    const auto refreshSoon = [this] { refreshTimer->start(0); };
    const DesignManager *manager = DesignManager::instance();
    connect(manager, &DesignManager::designAttached, this, refreshSoon);
    connect(manager, &DesignManager::designClosed, this, refreshSoon);
    connect(manager, &DesignManager::designChanged, this, refreshSoon);
    connect(manager, &DesignManager::activeDesignChanged, this, refreshSoon);
    refresh();
}

QString DesignsMode::contextString() const { return u"Context.Designs"_s; }

QString DesignsMode::contextHelpId() const { return QString(); }

QIcon DesignsMode::modeIcon() const { return QIcon(modeIconFile); }

QString DesignsMode::modeName() const { return tr("Designs"); }

void DesignsMode::refresh()
{
    designs->clear();
    const DesignManager *manager = DesignManager::instance();
    const QList<IDesign *> active = manager->activeDesigns();
    const QStringList ids = manager->openDesignIds();
    for (const QString &designId : ids) {
        IDesign *design = manager->design(designId);
        if (design)
            designs->addTopLevelItem(rowOf(*design, active.contains(design)));
    }
    pages->setCurrentIndex(ids.isEmpty() ? 0 : 1);
}

void DesignsMode::activateDesign(const QString &designId)
{
    DesignManager::instance()->setActiveDesign(designId);
}
