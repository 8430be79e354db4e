#include "app/builds/BuildConfigurationPage.h"

#include "app/builds/MacroEditor.h"
#include "app/builds/StepEditor.h"
#include "app/editor/NoticeBar.h"
#include "app/journal/journaling.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/DesignManager.h>

#include <QFormLayout>
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
      name(new QLineEdit(this)),
      targetPath(new QLineEdit(this)),
      macros(new MacroEditor(this)),
      steps(new StepEditor(this))
{
    layOut();
    connect(name, &QLineEdit::textEdited, this, &EditorPage::stateChanged);
    connect(name, &QLineEdit::textChanged, this,
            [this](const QString &text) { targetPath->setPlaceholderText(u"build/"_s + text); });
    connect(targetPath, &QLineEdit::textEdited, this, &EditorPage::stateChanged);
    connect(macros, &MacroEditor::changed, this, &EditorPage::stateChanged);
    connect(steps, &StepEditor::changed, this, &EditorPage::stateChanged);
    const DesignManager *manager = DesignManager::instance();
    connect(manager, &DesignManager::designChanged, this, &BuildConfigurationPage::follow);
    connect(manager, &DesignManager::designClosed, this, &BuildConfigurationPage::follow);
    // In the middle of its end nothing can be asked.
    connect(configuration, &QObject::destroyed, this, &BuildConfigurationPage::follow,
            Qt::QueuedConnection);
    load(configuration->description());
    follow();
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
    scrolled->setFrameShape(QFrame::NoFrame);
    scrolled->setWidgetResizable(true);
    scrolled->setWidget(inside);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(notice);
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
}

void BuildConfigurationPage::follow()
{
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
