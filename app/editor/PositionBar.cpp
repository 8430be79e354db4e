#include "app/editor/PositionBar.h"

#include "app/editor/TextEdit.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QTextCursor>

using namespace Qt::Literals::StringLiterals;

PositionBar::PositionBar(TextEdit *theEdit, QWidget *parent)
    : QWidget(parent),
      edit(theEdit),
      position(new QLabel(this)),
      kind(new QLabel(this)),
      form(new QLabel(this))
{
    setObjectName(u"position"_s);
    auto *layout = new QHBoxLayout(this);
    const int margin = fontMetrics().averageCharWidth();
    layout->setContentsMargins(margin, margin / 4, margin, margin / 4);
    layout->setSpacing(3 * margin);
    layout->addWidget(position, 1);
    layout->addWidget(kind);
    layout->addWidget(form);
    connect(edit, &QPlainTextEdit::cursorPositionChanged, this, &PositionBar::showPosition);
    connect(edit, &QPlainTextEdit::selectionChanged, this, &PositionBar::showPosition);
    showPosition();
}

void PositionBar::setForm(const QString &text) { form->setText(text); }

void PositionBar::setKind(const QString &text)
{
    kind->setText(text);
    kind->setVisible(!text.isEmpty());
}

void PositionBar::take(const PositionBar &other)
{
    setForm(other.form->text());
    setKind(other.kind->text());
}

QString PositionBar::text() const
{
    QStringList parts {position->text(), kind->text(), form->text()};
    parts.removeAll(QString());
    return parts.join(u" | "_s);
}

void PositionBar::showPosition()
{
    const QTextCursor cursor = edit->textCursor();
    QString text =
        tr("Line %L1, Column %L2").arg(cursor.blockNumber() + 1).arg(cursor.positionInBlock() + 1);
    if (cursor.hasSelection()) {
        const int selected = cursor.selectionEnd() - cursor.selectionStart();
        text += tr(" (%L1 selected)").arg(selected);
    }
    position->setText(text);
}
