#include "app/window/ModeBar.h"

#include <QActionGroup>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int iconExtent = 40;
constexpr int buttonWidth = 84;

} // namespace

ModeBar::ModeBar(QWidget *parent) : QToolBar(tr("Modes"), parent), modes(new QActionGroup(this))
{
    setObjectName(u"modeBar"_s);
    setOrientation(Qt::Vertical);
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setIconSize(QSize(iconExtent, iconExtent));
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    connect(modes, &QActionGroup::triggered, this,
            [this](QAction *mode) { Q_EMIT chosen(mode->data().toInt()); });
}

void ModeBar::addMode(int id, const QIcon &icon, const QString &name)
{
    QAction *mode = addAction(icon, name);
    mode->setData(id);
    mode->setCheckable(true);
    modes->addAction(mode);
    mode->setShortcut(QKeySequence(Qt::ALT | Qt::Key(Qt::Key_0 + modes->actions().size())));
    mode->setToolTip(name + u" (%1)"_s.arg(mode->shortcut().toString(QKeySequence::NativeText)));
    widgetForAction(mode)->setMinimumWidth(buttonWidth);
}

void ModeBar::choose(int id)
{
    const QList<QAction *> all = modes->actions();
    for (QAction *mode : all) {
        if (mode->data().toInt() == id)
            mode->trigger();
    }
}
