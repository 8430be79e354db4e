#include "app/builds/StepEditor.h"

#include "app/builds/nameproblems.h"
#include "app/builds/StepForm.h"
#include "app/builds/StepModel.h"
#include "app/builds/tableform.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildStep;

namespace {

constexpr int leastRows = 5;

} // namespace

StepEditor::StepEditor(QWidget *parent)
    : QWidget(parent),
      model(new StepModel(this)),
      view(new QTableView(this)),
      reason(new QLabel(this)),
      form(new StepForm(this))
{
    prepareView();
    reason->setObjectName(u"stepReason"_s);
    reason->setWordWrap(true);
    reason->setTextFormat(Qt::PlainText);
    layOut();
    connect(view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &StepEditor::show);
    connect(model, &StepModel::changed, this, &StepEditor::changed);
    connect(form, &StepForm::edited, this, [this] {
        if (model->isOwn(row()))
            model->setStep(row(), form->step());
    });
    show();
}

void StepEditor::prepareView()
{
    view->setObjectName(u"stepTable"_s);
    view->setModel(model);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setTabKeyNavigation(false);
    view->setWordWrap(false);
    makeCompact(view, leastRows);
    view->setAccessibleName(tr("Build steps"));
    // The command takes what the others leave.
    view->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    view->horizontalHeader()->setSectionResizeMode(StepModel::Command, QHeaderView::Stretch);
}

void StepEditor::layOut()
{
    auto *buttons = new QHBoxLayout;
    addStep = addButton(tr("Add S&tep"), "addStep", &StepEditor::add);
    removeStep = addButton(tr("Remove Ste&p"), "removeStep", &StepEditor::remove);
    up = addButton(tr("Move &Up"), "moveStepUp", &StepEditor::moveUp);
    down = addButton(tr("Move &Down"), "moveStepDown", &StepEditor::moveDown);
    for (QPushButton *button : {addStep, removeStep, up, down})
        buttons->addWidget(button);
    buttons->addStretch();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view, 1);
    layout->addLayout(buttons);
    layout->addWidget(reason);
    layout->addWidget(form);
    setTabOrder(down, form);
}

QPushButton *StepEditor::addButton(const QString &text, const char *name, void (StepEditor::*act)())
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(QLatin1StringView(name));
    connect(button, &QPushButton::clicked, this, act);
    return button;
}

const QList<BuildStep> &StepEditor::steps() const { return model->steps(); }

void StepEditor::setSteps(const QList<BuildStep> &steps)
{
    QList<BuildStep> ofFiles;
    for (int fixed = int(model->steps().size()); fixed < model->rowCount(); ++fixed)
        ofFiles.append(model->step(fixed));
    const int before = row();
    model->setSteps(steps, ofFiles);
    choose(std::max(before, 0));
}

void StepEditor::setStepsOfFiles(const QList<BuildStep> &steps)
{
    const int before = row();
    model->setStepsOfFiles(steps);
    if (row() < 0)
        choose(std::max(before, 0));
}

QStringList StepEditor::markProblems()
{
    QStringList names;
    for (const BuildStep &step : model->steps())
        names.append(step.name);
    const NameProblems problems =
        findNameProblems(names, tr("Two steps have the name \"%1\"."), tr("A step has no name."));
    model->setMarks(problems.ofRows);
    return problems.texts;
}

void StepEditor::setStates(const QHash<QString, QString> &words) { model->setStates(words); }

void StepEditor::setReadOnly(bool flag)
{
    readOnly = flag;
    show();
}

int StepEditor::row() const { return view->currentIndex().row(); }

void StepEditor::choose(int wanted)
{
    view->selectRow(std::min(wanted, model->rowCount() - 1));
    show();
}

// What belongs to the step that is chosen.
void StepEditor::show()
{
    const int chosen = row();
    const bool isOwn = model->isOwn(chosen);
    addStep->setEnabled(!readOnly);
    removeStep->setEnabled(!readOnly && isOwn);
    up->setEnabled(!readOnly && isOwn && chosen > 0);
    down->setEnabled(!readOnly && isOwn && chosen + 1 < model->steps().size());
    const QString why = chosen < 0 ? QString() : model->reason(chosen);
    reason->setText(why);
    reason->setVisible(!why.isEmpty());
    form->setEnabled(chosen >= 0);
    form->setReadOnly(readOnly || !isOwn);
    form->setToolTip(why);
    const BuildStep step = chosen < 0 ? BuildStep() : model->step(chosen);
    if (form->step() != step)
        form->setStep(step);
}

void StepEditor::add()
{
    const int at = model->isOwn(row()) ? row() + 1 : int(model->steps().size());
    model->insert(at, {tr("new step"), {}, {}, {}});
    choose(at);
    form->focusName();
}

void StepEditor::remove()
{
    const int at = row();
    model->remove(at);
    choose(at);
}

void StepEditor::moveUp()
{
    const int at = row() - 1;
    model->swapWithNext(at);
    choose(at);
}

void StepEditor::moveDown()
{
    const int at = row();
    model->swapWithNext(at);
    choose(at + 1);
}
