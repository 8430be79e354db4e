#include "app/editor/FindBar.h"

#include "app/editor/IncrementalSearch.h"
#include "app/editor/TextEdit.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

QHBoxLayout *lineLayout(QWidget *line)
{
    auto *layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    return layout;
}

QLineEdit *field(QWidget *line, const char *name, const QString &text)
{
    auto *made = new QLineEdit(line);
    made->setObjectName(QString::fromLatin1(name));
    auto *label = new QLabel(text, line);
    label->setBuddy(made);
    line->layout()->addWidget(label);
    line->layout()->addWidget(made);
    return made;
}

QPushButton *button(QWidget *line, const char *name, const QString &text)
{
    auto *made = new QPushButton(text, line);
    made->setObjectName(QString::fromLatin1(name));
    made->setAutoDefault(false);
    line->layout()->addWidget(made);
    return made;
}

} // namespace

FindBar::FindBar(TextEdit *theEdit, QWidget *parent)
    : QWidget(parent),
      edit(theEdit),
      matches(new IncrementalSearch(edit, this))
{
    setObjectName(u"findBar"_s);
    auto *layout = new QVBoxLayout(this);
    const int margin = fontMetrics().averageCharWidth();
    layout->setContentsMargins(margin, margin / 2, margin, margin / 2);
    layout->setSpacing(margin / 2);
    layout->addWidget(searchLine());
    layout->addWidget(optionLine());
    replacing = replaceLine();
    layout->addWidget(replacing);
    setTabOrder(pattern, replacement);
    hide();

    connect(matches, &IncrementalSearch::statusChanged, this,
            [this] { status->setText(matches->status()); });
}

void FindBar::open(bool withReplacing)
{
    const QString chosen = edit->textCursor().selectedText();
    matches->begin();
    replacing->setVisible(withReplacing && !edit->isReadOnly());
    show();
    if (!chosen.isEmpty() && !chosen.contains(QChar::ParagraphSeparator)
        && !regularExpression->isChecked())
        pattern->setText(chosen);
    pattern->setFocus();
    pattern->selectAll();
    search();
}

void FindBar::findNext() { find(true); }

void FindBar::findPrevious() { find(false); }

void FindBar::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        leave();
    else if (isReturn && replacement->hasFocus())
        replace();
    else if (isReturn)
        find(!(event->modifiers() & Qt::ShiftModifier));
    else
        QWidget::keyPressEvent(event);
}

void FindBar::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    matches->setInSight(true);
}

void FindBar::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    matches->setInSight(false);
}

QWidget *FindBar::searchLine()
{
    auto *line = new QWidget(this);
    QHBoxLayout *layout = lineLayout(line);
    pattern = field(line, "pattern", tr("Find:"));
    layout->setStretchFactor(pattern, 1);
    connect(button(line, "next", tr("&Next")), &QPushButton::clicked, this, &FindBar::findNext);
    connect(button(line, "previous", tr("&Previous")), &QPushButton::clicked, this,
            &FindBar::findPrevious);
    auto *shut = new QToolButton(line);
    shut->setObjectName(u"close"_s);
    shut->setIcon(style()->standardIcon(QStyle::SP_DockWidgetCloseButton));
    shut->setAutoRaise(true);
    shut->setToolTip(tr("Close"));
    shut->setAccessibleName(tr("Close"));
    layout->addWidget(shut);
    connect(shut, &QToolButton::clicked, this, &FindBar::leave);
    connect(pattern, &QLineEdit::textEdited, this, &FindBar::search);
    return line;
}

QWidget *FindBar::optionLine()
{
    auto *line = new QWidget(this);
    QHBoxLayout *layout = lineLayout(line);
    matchCase = option(tr("Match &case"), "matchCase");
    wholeWords = option(tr("&Whole words"), "wholeWords");
    regularExpression = option(tr("Regular e&xpression"), "regularExpression");
    for (QCheckBox *box : {matchCase, wholeWords, regularExpression})
        layout->addWidget(box);
    status = new QLabel(line);
    status->setObjectName(u"status"_s);
    status->setTextFormat(Qt::PlainText);
    status->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // A long note must not make the whole window wider.
    status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layout->addWidget(status, 1);
    return line;
}

QWidget *FindBar::replaceLine()
{
    auto *line = new QWidget(this);
    QHBoxLayout *layout = lineLayout(line);
    replacement = field(line, "replacement", tr("Replace with:"));
    connect(button(line, "replace", tr("&Replace")), &QPushButton::clicked, this,
            &FindBar::replace);
    connect(button(line, "replaceAll", tr("Replace &All")), &QPushButton::clicked, this,
            &FindBar::replaceAll);
    layout->setStretchFactor(replacement, 1);
    return line;
}

QCheckBox *FindBar::option(const QString &text, const char *name)
{
    auto *box = new QCheckBox(text, this);
    box->setObjectName(QString::fromLatin1(name));
    connect(box, &QCheckBox::toggled, this, &FindBar::search);
    return box;
}

void FindBar::leave()
{
    hide();
    edit->setFocus();
}

void FindBar::search()
{
    matches->search(TextSearch(
        pattern->text(),
        {matchCase->isChecked(), wholeWords->isChecked(), regularExpression->isChecked()}));
}

void FindBar::find(bool forward)
{
    if (!isVisible() && matches->isEmpty())
        open(false);
    else
        matches->find(forward);
}

void FindBar::replace() { matches->replace(replacement->text()); }

void FindBar::replaceAll() { matches->replaceAll(replacement->text()); }
