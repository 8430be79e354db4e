#include "app/editor/NoticeBar.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

// The least that a long text gets beside the buttons.
constexpr int readable = 45; // characters

enum Column { SignColumn, TextColumn, OfferColumn };

} // namespace

NoticeBar::NoticeBar(QWidget *parent)
    : QFrame(parent),
      label(new QLabel(this)),
      offers(new QWidget(this)),
      offerRow(new QHBoxLayout(offers)),
      cells(new QGridLayout(this))
{
    setObjectName(u"notice"_s);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    setFrameShape(QFrame::NoFrame);
    auto *sign = new QLabel(this);
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    label->setObjectName(u"noticeText"_s);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setForegroundRole(QPalette::ToolTipText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    offerRow->setContentsMargins(0, 0, 0, 0);
    cells->addWidget(sign, 0, SignColumn);
    cells->addWidget(label, 0, TextColumn);
    cells->addWidget(offers, 0, OfferColumn);
    cells->setColumnStretch(TextColumn, 1);
    const int margin = style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing, nullptr, this);
    cells->setContentsMargins(margin, margin / 2, margin, margin / 2);
    setVisible(false);
}

void NoticeBar::show(const QString &text, const QList<Choice> &choices)
{
    label->setText(text);
    for (QWidget *button : std::as_const(buttons)) {
        offerRow->removeWidget(button);
        button->hide();
        button->deleteLater();
    }
    buttons.clear();
    for (const Choice &choice : choices) {
        auto *button = new QPushButton(choice.text, offers);
        connect(button, &QPushButton::clicked, this, choice.act);
        offerRow->addWidget(button);
        button->show();
        buttons.append(button);
    }
    arrange();
    setVisible(!text.isEmpty());
}

void NoticeBar::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    arrange();
}

void NoticeBar::arrange()
{
    const QFontMetrics metrics = label->fontMetrics();
    const int wanted =
        std::min(metrics.horizontalAdvance(label->text()), metrics.averageCharWidth() * readable);
    const int beside = width() - label->x() - offerRow->sizeHint().width()
        - cells->horizontalSpacing() - cells->contentsMargins().right();
    const bool isBelow = !buttons.isEmpty() && beside < wanted;
    if (isBelow == (cells->itemAtPosition(1, TextColumn) != nullptr))
        return;
    cells->removeWidget(offers);
    if (isBelow)
        cells->addWidget(offers, 1, TextColumn, Qt::AlignLeft);
    else
        cells->addWidget(offers, 0, OfferColumn);
}

QString NoticeBar::text() const { return label->text(); }
