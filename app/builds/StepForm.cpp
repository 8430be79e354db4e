#include "app/builds/StepForm.h"

#include <QFontDatabase>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopedValueRollback>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildStep;

namespace {

constexpr int commandLines = 3;
constexpr int pathLines = 2;

// Unlike toPlainText(), leaves blanks that do not break as they are.
QString textOf(const QPlainTextEdit *edit)
{
    QString text = edit->document()->toRawText();
    return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

} // namespace

StepForm::StepForm(QWidget *parent)
    : QWidget(parent),
      name(new QLineEdit(this)),
      command(addText("stepCommand", commandLines)),
      inputs(addText("stepInputs", pathLines)),
      outputs(addText("stepOutputs", pathLines)),
      pool(new QLineEdit(this))
{
    name->setObjectName(u"stepName"_s);
    const QString paths = tr("One path in a line, absolute or relative to the working folder.");
    command->setToolTip(tr("Run by /bin/sh in the working folder. $(INPUTS), $(OUTPUTS) and "
                           "$(TARGET_PATH) are replaced, and so are all macros."));
    inputs->setToolTip(paths + u' ' + tr("\"node:NAME\" stands for the files of a node."));
    outputs->setToolTip(paths + u' ' + tr("A step without outputs runs every time."));
    pool->setObjectName(u"stepPool"_s);
    pool->setPlaceholderText(tr("none"));
    pool->setToolTip(
        tr("Of the steps of a pool only so many run at once, as the preferences say."));
    auto *form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(tr("Step &name:"), name);
    form->addRow(tr("&Command:"), command);
    form->addRow(tr("&Inputs:"), inputs);
    form->addRow(tr("&Outputs:"), outputs);
    form->addRow(tr("&Pool:"), pool);

    connect(name, &QLineEdit::textEdited, this, [this](const QString &text) {
        current.name = text;
        Q_EMIT edited();
    });
    connect(pool, &QLineEdit::textEdited, this, [this](const QString &text) {
        current.pool = text.trimmed();
        Q_EMIT edited();
    });
    connect(command, &QPlainTextEdit::textChanged, this, [this] {
        if (filling)
            return;
        current.command = textOf(command);
        Q_EMIT edited();
    });
    connect(inputs, &QPlainTextEdit::textChanged, this,
            [this] { takeLines(inputs, &current.inputs); });
    connect(outputs, &QPlainTextEdit::textChanged, this,
            [this] { takeLines(outputs, &current.outputs); });
}

QPlainTextEdit *StepForm::addText(const char *objectName, int lines)
{
    auto *edit = new QPlainTextEdit(this);
    edit->setObjectName(QLatin1StringView(objectName));
    edit->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    edit->setTabChangesFocus(true);
    const int frame = 2 * (edit->frameWidth() + int(edit->document()->documentMargin()));
    edit->setFixedHeight(edit->fontMetrics().lineSpacing() * lines + frame);
    return edit;
}

void StepForm::takeLines(const QPlainTextEdit *from, QStringList *to)
{
    if (filling)
        return;
    *to = textOf(from).split(u'\n', Qt::SkipEmptyParts);
    Q_EMIT edited();
}

void StepForm::setStep(const BuildStep &step)
{
    current = step;
    const QScopedValueRollback guard(filling, true);
    name->setText(step.name);
    name->setCursorPosition(0);
    command->setPlainText(step.command);
    inputs->setPlainText(step.inputs.join(u'\n'));
    outputs->setPlainText(step.outputs.join(u'\n'));
    pool->setText(step.pool);
    pool->setCursorPosition(0);
}

void StepForm::setReadOnly(bool readOnly)
{
    name->setReadOnly(readOnly);
    pool->setReadOnly(readOnly);
    for (QPlainTextEdit *edit : {command, inputs, outputs})
        edit->setReadOnly(readOnly);
}

void StepForm::focusName()
{
    name->setFocus();
    name->selectAll();
}
