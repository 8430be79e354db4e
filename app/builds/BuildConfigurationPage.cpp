#include "app/builds/BuildConfigurationPage.h"

#include "app/builds/MacroEditor.h"
#include "app/builds/StepEditor.h"
#include "app/builds/StepStates.h"
#include "app/editor/NoticeBar.h"
#include "app/journal/journaling.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/DesignManager.h>

#include <QApplication>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QSplitter>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::BuildDescription;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

BuildConfigurationPage *
BuildConfigurationPage::create(IDesign *design, const QString &configurationName, QWidget *parent)
{
    BuildConfiguration *configuration = design->buildConfiguration(configurationName);
    return configuration ? new BuildConfigurationPage(design, configuration, parent) : nullptr;
}

QString BuildConfigurationPage::keyOf(const IDesign &design, const QString &configurationName)
{
    return design.componentFileName() + u"#build="_s + configurationName;
}

BuildConfigurationPage::BuildConfigurationPage(IDesign *itsDesign,
                                               BuildConfiguration *itsConfiguration,
                                               QWidget *parent)
    : EditorPage(parent),
      designObject(itsDesign->objectBase()),
      configuration(itsConfiguration),
      notice(new NoticeBar(this)),
      problems(new QLabel(this)),
      name(new QLineEdit(this)),
      targetPath(new QLineEdit(this)),
      macros(new MacroEditor(this)),
      steps(new StepEditor(this)),
      states(new StepStates(this))
{
    layOut();
    connect(name, &QLineEdit::textEdited, this, &BuildConfigurationPage::noteChange);
    connect(name, &QLineEdit::textChanged, this,
            [this](const QString &text) { targetPath->setPlaceholderText(u"build/"_s + text); });
    connect(targetPath, &QLineEdit::textEdited, this, &BuildConfigurationPage::noteChange);
    connect(macros, &MacroEditor::changed, this, &BuildConfigurationPage::noteChange);
    connect(steps, &StepEditor::changed, this, &BuildConfigurationPage::noteChange);
    connect(states, &StepStates::changed, this, [this] { steps->setStates(states->words()); });
    const DesignManager *manager = DesignManager::instance();
    connect(manager, &DesignManager::designChanged, this, &BuildConfigurationPage::follow);
    connect(manager, &DesignManager::designClosed, this, &BuildConfigurationPage::follow);
    // In the middle of its end nothing can be asked.
    connect(configuration, &QObject::destroyed, this, &BuildConfigurationPage::follow,
            Qt::QueuedConnection);
    load(configuration->description());
    follow();
    // The undo of the page, not that of each field.
    for (QWidget *part : findChildren<QWidget *>())
        part->installEventFilter(this);
}

// The fields go later than what listens to them.
BuildConfigurationPage::~BuildConfigurationPage()
{
    for (QObject *part : std::initializer_list<QObject *> {name, targetPath, macros, steps})
        part->disconnect(this);
}

void BuildConfigurationPage::layOut()
{
    name->setObjectName(u"configurationName"_s);
    targetPath->setObjectName(u"targetPath"_s);
    problems->setObjectName(u"configurationProblems"_s);
    problems->setTextFormat(Qt::PlainText);
    problems->setWordWrap(true);
    problems->setMargin(fontMetrics().averageCharWidth());
    QFont marked = problems->font();
    marked.setBold(true);
    problems->setFont(marked);
    targetPath->setToolTip(tr("The folder that the build writes to, absolute or relative to the "
                              "working folder of the design."));
    auto *form = new QFormLayout;
    form->addRow(tr("Na&me:"), name);
    form->addRow(tr("Tar&get path:"), targetPath);
    auto *splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(macros);
    splitter->addWidget(steps);
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(1, 1);
    auto *inside = new QWidget;
    auto *content = new QVBoxLayout(inside);
    const int margin = style()->pixelMetric(QStyle::PM_LayoutLeftMargin, nullptr, this);
    content->setContentsMargins(margin, margin, margin, margin);
    content->addLayout(form);
    content->addWidget(splitter, 1);
    auto *scrolled = new QScrollArea(this);
    scrolled->setAccessibleName(tr("Build configuration"));
    scrolled->setFrameShape(QFrame::NoFrame);
    scrolled->setWidgetResizable(true);
    scrolled->setWidget(inside);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(notice);
    layout->addWidget(problems);
    layout->addWidget(scrolled, 1);
    setFocusProxy(name);
}

IDesign *BuildConfigurationPage::design() const
{
    auto *its = qobject_cast<IDesign *>(designObject.data());
    // A closed design is not destroyed at once.
    return its && DesignManager::instance()->design(its->id(u"."_s)) == its ? its : nullptr;
}

QString BuildConfigurationPage::title() const { return base.name; }

QString BuildConfigurationPage::toolTipText() const
{
    return tr("Build configuration \"%1\" of the design \"%2\"").arg(base.name, designName);
}

// A line shows line breaks otherwise than they are; what is not edited is as it was.
BuildDescription BuildConfigurationPage::edited() const
{
    return {name->isModified() ? name->text() : base.name,
            targetPath->isModified() ? targetPath->text() : base.targetPath, macros->macros(),
            steps->steps()};
}

bool BuildConfigurationPage::isModified() const { return isUnwritten || edited() != base; }

void BuildConfigurationPage::load(const BuildDescription &description)
{
    base = description;
    isInConflict = false;
    name->setText(base.name);
    targetPath->setText(base.targetPath);
    macros->setMacros(base.macros);
    steps->setSteps(base.steps);
    history.begin(base);
    showProblems();
    Q_EMIT commandsChanged();
}

void BuildConfigurationPage::showEdited(const BuildDescription &description)
{
    name->setText(description.name);
    name->setModified(description.name != base.name);
    targetPath->setText(description.targetPath);
    targetPath->setModified(description.targetPath != base.targetPath);
    macros->setMacros(description.macros);
    steps->setSteps(description.steps);
    showProblems();
    Q_EMIT stateChanged();
    Q_EMIT commandsChanged();
}

void BuildConfigurationPage::noteChange()
{
    history.note(edited(), QApplication::focusWidget());
    showProblems();
    Q_EMIT stateChanged();
    Q_EMIT commandsChanged();
}

void BuildConfigurationPage::showProblems()
{
    const QStringList texts = macros->markProblems() + steps->markProblems();
    problems->setText(texts.join(u'\n'));
    problems->setVisible(!texts.isEmpty());
}

bool BuildConfigurationPage::can(Command command) const
{
    const IDesign *its = design();
    const bool isWritable = !its || !its->isReadOnly();
    return isWritable
        && ((command == Undo && history.canUndo()) || (command == Redo && history.canRedo()));
}

void BuildConfigurationPage::run(Command command)
{
    if (can(command))
        showEdited(BuildDescription(command == Undo ? history.undo() : history.redo()));
}

// A field that takes the key for itself would leave nothing for the page.
bool BuildConfigurationPage::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride)
        return EditorPage::eventFilter(watched, event);
    const auto *key = static_cast<const QKeyEvent *>(event);
    if (!key->matches(QKeySequence::Undo) && !key->matches(QKeySequence::Redo))
        return EditorPage::eventFilter(watched, event);
    event->ignore();
    return true;
}

void BuildConfigurationPage::follow()
{
    states->follow(configuration);
    if (configuration)
        followDescription(configuration->description());
    else
        followLoss();
    updateIdentity();
    updateNotice();
    Q_EMIT stateChanged();
}

void BuildConfigurationPage::followDescription(const BuildDescription &theirs)
{
    const BuildDescription mine = edited();
    if (theirs == mine) {
        base = theirs;
        isInConflict = false;
        name->setModified(false);
        targetPath->setModified(false);
    } else if (theirs == base) {
        isInConflict = false;
    } else if (mine == base) {
        load(theirs);
    } else {
        isInConflict = true;
    }
    steps->setStepsOfFiles(configuration->stepsOfFiles());
}

void BuildConfigurationPage::followLoss()
{
    isInConflict = false;
    // Without changes there is nothing left to show.
    if (edited() == base)
        deleteLater();
}

void BuildConfigurationPage::updateIdentity()
{
    const IDesign *its = design();
    if (its && configuration) {
        designName = its->name();
        pageKey = keyOf(*its, configuration->configurationName());
    }
    const bool readOnly = its && its->isReadOnly();
    name->setReadOnly(readOnly);
    targetPath->setReadOnly(readOnly);
    macros->setReadOnly(readOnly);
    steps->setReadOnly(readOnly);
}

void BuildConfigurationPage::updateNotice()
{
    const IDesign *its = design();
    if (isInConflict)
        notice->show(tr("The build configuration was changed elsewhere, and you have changed it "
                        "here."),
                     {{tr("&Load Theirs"),
                       [this] {
                           load(configuration->description());
                           follow();
                       }},
                      {tr("&Keep Mine"), [this] { keepMine(); }}});
    else if (!its)
        notice->show(tr("The design \"%1\" is closed; your changes can no longer be saved.")
                         .arg(designName));
    else if (!configuration)
        notice->show(tr("The build configuration is no longer in the design \"%1\"; saving adds "
                        "it again.")
                         .arg(designName));
    else if (its->isReadOnly())
        notice->show(tr("The design \"%1\" is read-only.").arg(designName));
    else
        notice->show(QString());
}

void BuildConfigurationPage::keepMine()
{
    const BuildDescription mine = edited();
    base = configuration->description();
    name->setModified(mine.name != base.name);
    targetPath->setModified(mine.targetPath != base.targetPath);
    follow();
}

Status BuildConfigurationPage::save()
{
    // What counts is asked above the page.
    if (isInConflict)
        return {Status::Kind::Conflict, QString()};
    if (!isModified())
        return {};
    IDesign *its = design();
    return its ? write(*its) : Status::notFound(tr("The design \"%1\" is closed").arg(designName));
}

Status BuildConfigurationPage::write(IDesign &its)
{
    const BuildDescription mine = edited();
    if (!configuration) {
        const Result<BuildConfiguration *> added = its.tryAddBuildConfiguration(mine.name);
        if (!added.isOk())
            return added.status();
        configuration = added.value();
        journaling::configurationAdded(its, mine.name);
        connect(configuration, &QObject::destroyed, this, &BuildConfigurationPage::follow,
                Qt::QueuedConnection);
    }
    const BuildDescription before = configuration->description();
    if (const Status changed = configuration->trySetDescription(mine); !changed.isOk())
        return changed;
    if (mine != before)
        journaling::configurationDescribed(its, before.name, mine);
    const Status written = its.trySaveToComponentFile();
    if (written.isOk())
        journaling::saved(its);
    isUnwritten = !written.isOk();
    follow();
    return written;
}
