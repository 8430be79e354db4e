#include "app/places/TextLinks.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>

namespace {

// Milliseconds between two looks at the text, whatever arrives.
constexpr int lookInterval = 50;

} // namespace

// What both kinds of text widgets can.
struct TextLinks::Face
{
    virtual ~Face() = default;
    virtual QAbstractScrollArea *area() const = 0;
    virtual bool isReadOnly() const = 0;
    virtual QTextCursor cursor() const = 0;
    virtual QTextCursor cursorAt(const QPoint &position) const = 0;
    virtual QRect rectOf(const QTextCursor &cursor) const = 0;
    virtual void select(const QList<QTextEdit::ExtraSelection> &selections) = 0;
};

namespace {

template <typename Edit, typename Base>
struct FaceOf : Base
{
    explicit FaceOf(Edit *theEdit) : edit(theEdit) { }

    QAbstractScrollArea *area() const override { return edit; }
    bool isReadOnly() const override { return edit->isReadOnly(); }
    QTextCursor cursor() const override { return edit->textCursor(); }
    QTextCursor cursorAt(const QPoint &position) const override
    {
        return edit->cursorForPosition(position);
    }
    QRect rectOf(const QTextCursor &cursor) const override { return edit->cursorRect(cursor); }
    void select(const QList<QTextEdit::ExtraSelection> &selections) override
    {
        edit->setExtraSelections(selections);
    }

    Edit *edit;
};

QTextCursor cursorOf(const QTextBlock &block, const TextLinks::Link &link)
{
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + int(link.start));
    cursor.setPosition(block.position() + int(link.start + link.length), QTextCursor::KeepAnchor);
    return cursor;
}

} // namespace

TextLinks::TextLinks(QTextEdit *edit, Find finds, Follow follows)
    : TextLinks(edit, std::make_unique<FaceOf<QTextEdit, Face>>(edit), std::move(finds),
                std::move(follows))
{
    connect(edit, &QTextEdit::textChanged, &showing, qOverload<>(&QTimer::start));
}

TextLinks::TextLinks(QPlainTextEdit *edit, Find finds, Follow follows)
    : TextLinks(edit, std::make_unique<FaceOf<QPlainTextEdit, Face>>(edit), std::move(finds),
                std::move(follows))
{
    connect(edit, &QPlainTextEdit::textChanged, &showing, qOverload<>(&QTimer::start));
}

TextLinks::TextLinks(QWidget *edit, std::unique_ptr<Face> itsFace, Find finds, Follow follows)
    : QObject(edit),
      face(std::move(itsFace)),
      viewport(face->area()->viewport()),
      find(std::move(finds)),
      follow(std::move(follows))
{
    showing.setSingleShot(true);
    showing.setInterval(lookInterval);
    showing.callOnTimeout(this, &TextLinks::show);
    connect(face->area()->verticalScrollBar(), &QScrollBar::valueChanged, &showing,
            qOverload<>(&QTimer::start));
    connect(face->area()->verticalScrollBar(), &QScrollBar::rangeChanged, &showing,
            qOverload<>(&QTimer::start));
    edit->installEventFilter(this);
    viewport->installEventFilter(this);
    viewport->setMouseTracking(true);
    showing.start();
}

TextLinks::~TextLinks() = default;

void TextLinks::show()
{
    const QRect seen = face->area()->viewport()->rect();
    QTextBlock block = face->cursorAt(seen.topLeft()).block();
    const QTextBlock last = face->cursorAt(seen.bottomRight()).block();
    QList<QTextEdit::ExtraSelection> selections;
    for (; block.isValid() && block.position() <= last.position(); block = block.next()) {
        for (const Link &link : find(block.text())) {
            QTextEdit::ExtraSelection selection;
            selection.cursor = cursorOf(block, link);
            selection.format.setFontUnderline(true);
            selections.append(selection);
        }
    }
    face->select(selections);
}

QTextCursor TextLinks::linkAt(const QPoint &position) const
{
    const QTextCursor place = face->cursorAt(position);
    for (const Link &link : find(place.block().text())) {
        const QTextCursor cursor = cursorOf(place.block(), link);
        QTextCursor begin = cursor;
        begin.setPosition(cursor.selectionStart());
        QTextCursor end = cursor;
        end.setPosition(cursor.selectionEnd());
        const QRect first = face->rectOf(begin);
        const QRect last = face->rectOf(end);
        // Behind the end of a line its last character is the nearest one.
        const bool isOnOneLine = first.top() == last.top();
        const bool isInside = place.position() >= begin.position()
            && place.position() <= end.position()
            && (!isOnOneLine
                || (first.united(last).contains(position) && position.x() < last.right()));
        if (isInside)
            return begin;
    }
    return {};
}

// The widget gets the release before another one comes to the front.
void TextLinks::followAt(const QPoint &position)
{
    const QTextCursor clicked = std::exchange(pressed, {});
    if (clicked.isNull() || face->cursor().hasSelection() || clicked != linkAt(position))
        return;
    const QString line = clicked.block().text();
    QTimer::singleShot(0, this,
                       [this, line, start = clicked.positionInBlock()] { follow(line, start); });
}

// The widget may have a cursor of its own for what it knows.
void TextLinks::showCursor(bool isOverLink)
{
    if (std::exchange(isOver, isOverLink) != isOverLink)
        face->area()->viewport()->setCursor(isOver ? Qt::PointingHandCursor : Qt::IBeamCursor);
}

// The link that the cursor is on, else the first of its line.
bool TextLinks::followCursor()
{
    const QTextCursor cursor = face->cursor();
    const QString line = cursor.block().text();
    const QList<Link> links = find(line);
    if (links.isEmpty())
        return false;
    qsizetype start = links.first().start;
    for (const Link &link : links) {
        if (link.start <= cursor.positionInBlock())
            start = link.start;
    }
    follow(line, start);
    return true;
}

bool TextLinks::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != viewport) {
        if (event->type() != QEvent::KeyPress || !face->isReadOnly())
            return false;
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isReturn = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        return isReturn && key->modifiers() == Qt::NoModifier && followCursor();
    }
    if (event->type() == QEvent::Resize)
        showing.start();
    const auto *mouse =
        event->isSinglePointEvent() ? static_cast<QSinglePointEvent *>(event) : nullptr;
    if (!mouse)
        return false;
    const QPoint position = mouse->position().toPoint();
    if (event->type() == QEvent::MouseButtonPress) {
        const bool isPlain =
            mouse->button() == Qt::LeftButton && mouse->modifiers() == Qt::NoModifier;
        pressed = isPlain ? linkAt(position) : QTextCursor();
    } else if (event->type() == QEvent::MouseMove && mouse->buttons() == Qt::NoButton) {
        showCursor(!linkAt(position).isNull());
    } else if (event->type() == QEvent::MouseButtonRelease && mouse->button() == Qt::LeftButton) {
        followAt(position);
    }
    return false;
}
