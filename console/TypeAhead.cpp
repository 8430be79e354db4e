#include "console/TypeAhead.h"

#include <QKeyEvent>
#include <QTextEdit>

using namespace Qt::Literals::StringLiterals;

TypeAhead::TypeAhead(QTextEdit *widget)
    : QObject(widget),
      view(widget),
      line(new QLabel(widget->viewport()))
{
    line->setObjectName(u"typeAhead"_s);
    line->setTextFormat(Qt::PlainText);
    line->setAutoFillBackground(true);
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
    line->setText(QString(kept).replace(u'\n', u" \u23ce "_s));
    line->setVisible(!kept.isEmpty());
    place();
}

void TypeAhead::place()
{
    const QSize all = view->viewport()->size();
    const int height = line->sizeHint().height();
    line->setGeometry(0, all.height() - height, all.width(), height);
}

bool TypeAhead::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        place();
    return false;
}
