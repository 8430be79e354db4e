#include "console/SearchStrip.h"

#include "console/QConsole.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>

SearchStrip::SearchStrip(QConsole *owner, const QString &title)
    : QFrame(owner),
      console(owner),
      edit(new QLineEdit),
      note(new QLabel)
{
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    edit->setAccessibleName(title);
    edit->setMinimumWidth(180);
    auto *box = new QHBoxLayout(this);
    box->setContentsMargins(6, 3, 6, 3);
    box->addWidget(new QLabel(title));
    box->addWidget(edit);
    box->addWidget(note);
    edit->installEventFilter(this);
    console->viewport()->installEventFilter(this);
    connect(edit, &QLineEdit::textChanged, this, [this] { search(); });
}

void SearchStrip::open(SearchStrip *strip)
{
    for (auto *other : strip->console->findChildren<SearchStrip *>()) {
        if (other != strip)
            delete other;
    }
    strip->place();
    strip->show();
    strip->raise();
    strip->edit->setFocus();
}

QString SearchStrip::pattern() const { return edit->text(); }

void SearchStrip::setPattern(const QString &text)
{
    const QSignalBlocker quiet(edit);
    edit->setText(text);
    edit->selectAll();
}

void SearchStrip::setNote(const QString &text)
{
    note->setText(text);
    place();
}

void SearchStrip::leave()
{
    console->setFocus();
    hide();
    deleteLater();
}

void SearchStrip::place()
{
    adjustSize();
    const QRect inside = console->viewport()->geometry();
    move(std::max(inside.left(), inside.right() - width()), inside.top());
}

bool SearchStrip::keyPressed(const QKeyEvent &event)
{
    if (event.key() == Qt::Key_Escape) {
        cancel();
        leave();
        return true;
    }
    return pressed(event);
}

// The window's own keys must not reach past the strip while the user searches.
bool SearchStrip::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == edit && event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return false;
    }
    if (watched == edit && event->type() == QEvent::KeyPress)
        return keyPressed(*static_cast<QKeyEvent *>(event));
    if (watched != edit && event->type() == QEvent::Resize)
        place();
    return QFrame::eventFilter(watched, event);
}
