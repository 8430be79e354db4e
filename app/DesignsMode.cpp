#include "app/DesignsMode.h"

#include "app/builds/buildpages.h"
#include "app/designs/DesignTree.h"
#include "app/editor/EditorArea.h"

#include <QHBoxLayout>
#include <QSplitter>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString modeIconFile = u":/morvalen/designs_mode.png"_s;

// How much room the tree gets at first.
constexpr int treeCharacters = 92;

} // namespace

DesignsMode::DesignsMode(QWidget *parent)
    : QWidget(parent),
      tree(new DesignTree(this)),
      editors(new EditorArea(this))
{
    auto *splitter = new QSplitter(this);
    splitter->setObjectName(u"designsSplitter"_s);
    splitter->addWidget(tree);
    splitter->addWidget(editors);
    splitter->setStretchFactor(1, 1);
    const int treeWidth = fontMetrics().averageCharWidth() * treeCharacters;
    splitter->setSizes({treeWidth, treeWidth});
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
    setFocusProxy(tree);
    connect(tree, &DesignTree::configurationActivated, editors,
            [area = editors](const QString &designId, const QString &name) {
                buildpages::show(area, designId, name);
            });
}

QString DesignsMode::contextString() const { return u"Context.Designs"_s; }

QString DesignsMode::contextHelpId() const { return QString(); }

QIcon DesignsMode::modeIcon() const { return QIcon(modeIconFile); }

QString DesignsMode::modeName() const { return tr("Designs"); }
