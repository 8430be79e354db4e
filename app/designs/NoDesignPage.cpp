#include "app/designs/NoDesignPage.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

QLabel *makeLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    return label;
}

} // namespace

NoDesignPage::NoDesignPage(QWidget *parent) : QWidget(parent)
{
    const int gap = fontMetrics().height();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(gap, gap, gap, gap);
    layout->addStretch();
    layout->addWidget(makeLabel(tr("<h3>No design is open</h3>"), this));
    addButton(layout, tr("&New Design..."), u"newDesign"_s);
    addButton(layout, tr("&Open..."), u"open"_s);
    layout->addSpacing(gap);
    auto *hint = makeLabel(tr("<p>Or type in the console:</p>"
                              "<p><code>designs new uart \"Hardware Design\"</code></p>"),
                           this);
    hint->setForegroundRole(QPalette::PlaceholderText);
    setFocusProxy(buttons.first().first);
    layout->addWidget(hint);
    layout->addStretch();
}

void NoDesignPage::addButton(QVBoxLayout *layout, const QString &text, const QString &actionName)
{
    auto *button = new QPushButton(text, this);
    layout->addWidget(button, 0, Qt::AlignHCenter);
    buttons.append({button, actionName});
    connect(button, &QPushButton::clicked, this, [this, actionName] {
        if (auto *action = window()->findChild<QAction *>(actionName))
            action->trigger();
    });
}

// A window that cannot make or open designs gets no buttons for it.
void NoDesignPage::showEvent(QShowEvent *event)
{
    for (const auto &[button, actionName] : std::as_const(buttons))
        button->setVisible(window()->findChild<QAction *>(actionName) != nullptr);
    QWidget::showEvent(event);
}
