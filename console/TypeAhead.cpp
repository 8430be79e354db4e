#include "console/TypeAhead.h"

#include <QKeyEvent>
#include <QTextEdit>

using namespace Qt::Literals::StringLiterals;

namespace {

// So many characters fill the widest line; laying out more of them takes time for nothing.
constexpr qsizetype mostShown = 1'000;

} // namespace

TypeAhead::TypeAhead(QTextEdit *widget)
    : QObject(widget),
      view(widget),
      line(new QLabel(widget)) // the viewport moves its children when it scrolls
{
    line->setObjectName(u"typeAhead"_s);
    line->setTextFormat(Qt::PlainText);
    line->setAutoFillBackground(true);
    line->setBackgroundRole(QPalette::Base);
    line->setContentsMargins(int(view->document()->documentMargin()), 0, 0, 0);
    line->setAttribute(Qt::WA_TransparentForMouseEvents);
    line->hide();
    view->viewport()->installEventFilter(this);
}

bool TypeAhead::take(const QKeyEvent &event)
{
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        append(u"\n"_s);
        return true;
    case Qt::Key_Backspace:
        if (!kept.isEmpty() && !kept.endsWith(u'\n'))
            kept.chop(kept.size() > 1 && kept.back().isLowSurrogate() ? 2 : 1);
        show();
        return true;
    default:
        if (event.text().isEmpty() || !event.text().front().isPrint())
            return false;
        append(event.text());
        return true;
    }
}

void TypeAhead::append(const QString &text)
{
    kept += text;
    show();
}

void TypeAhead::clear()
{
    kept.clear();
    show();
}

QString TypeAhead::takeLine()
{
    const qsizetype end = kept.indexOf(u'\n');
    const QString first = end < 0 ? kept : kept.first(end + 1);
    kept.remove(0, first.size());
    show();
    return first;
}

void TypeAhead::show()
{
    line->setFont(view->currentFont());
    line->setText(kept.right(mostShown).replace(u'\n', u" \u23ce "_s));
    line->setVisible(!kept.isEmpty());
    place();
}

void TypeAhead::place()
{
    QRect foot = view->viewport()->geometry();
    foot.setTop(foot.bottom() + 1 - line->sizeHint().height());
    line->setGeometry(foot);
    const bool fits = line->sizeHint().width() <= foot.width();
    line->setAlignment((fits ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
}

bool TypeAhead::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        place();
    return false;
}
