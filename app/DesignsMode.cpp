#include "app/DesignsMode.h"

#include "app/editor/EditorArea.h"

#include <QHBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString modeIconFile = u":/morvalen/designs_mode.png"_s;

} // namespace

DesignsMode::DesignsMode(QWidget *parent) : QWidget(parent), editors(new EditorArea(this))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(editors);
}

QString DesignsMode::contextString() const { return u"Context.Designs"_s; }

QString DesignsMode::contextHelpId() const { return QString(); }

QIcon DesignsMode::modeIcon() const { return QIcon(modeIconFile); }

QString DesignsMode::modeName() const { return tr("Designs"); }
