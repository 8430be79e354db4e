#include "app/editor/NoticeBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

using namespace Qt::Literals::StringLiterals;

NoticeBar::NoticeBar(QWidget *parent)
    : QFrame(parent),
      label(new QLabel(this)),
      row(new QHBoxLayout(this))
{
    setObjectName(u"notice"_s);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    setFrameShape(QFrame::NoFrame);
    auto *sign = new QLabel(this);
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setForegroundRole(QPalette::ToolTipText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    row->addWidget(sign);
    row->addWidget(label, 1);
    const int margin = style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing, nullptr, this);
    row->setContentsMargins(margin, margin / 2, margin, margin / 2);
    setVisible(false);
}

void NoticeBar::show(const QString &text, const QList<Choice> &choices)
{
    label->setText(text);
    for (QWidget *button : std::as_const(buttons)) {
        button->hide();
        button->deleteLater();
    }
    buttons.clear();
    for (const Choice &choice : choices) {
        auto *button = new QPushButton(choice.text, this);
        connect(button, &QPushButton::clicked, this, choice.act);
        row->addWidget(button);
        button->show();
        buttons.append(button);
    }
    setVisible(!text.isEmpty());
}

QString NoticeBar::text() const { return label->text(); }
