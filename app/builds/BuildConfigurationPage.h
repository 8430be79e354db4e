#pragma once

#include "app/builds/DescriptionHistory.h"
#include "app/editor/EditorPage.h"

#include <MorvalenCore/BuildDescription.h>

#include <QPointer>

namespace MorvalenCore {
class BuildConfiguration;
}
namespace MorvalenCore::Interfaces {
class IDesign;
}

class MacroEditor;
class NoticeBar;
class QLabel;
class QLineEdit;
class StepEditor;
class StepStates;

// A page that shows a build configuration and lets users change it. Saving writes the design's
// component file. A page without changes follows the configuration and goes with it; one with
// changes asks what counts, and keeps them when the configuration or its design is gone.
class BuildConfigurationPage : public EditorPage
{
    Q_OBJECT

public:
    // Null when the design has no such configuration.
    static BuildConfigurationPage *create(MorvalenCore::Interfaces::IDesign *design,
                                          const QString &configurationName,
                                          QWidget *parent = nullptr);
    ~BuildConfigurationPage() override;

    // The key of the page of a configuration.
    static QString keyOf(const MorvalenCore::Interfaces::IDesign &design,
                         const QString &configurationName);

    QString key() const override { return pageKey; }
    QString title() const override;
    QString toolTipText() const override;
    bool isModified() const override;
    Qtilities::Core::Status save() override;
    // Undo and redo are those of the page as a whole.
    bool can(Command command) const override;
    void run(Command command) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    BuildConfigurationPage(MorvalenCore::Interfaces::IDesign *design,
                           MorvalenCore::BuildConfiguration *configuration, QWidget *parent);
    void layOut();
    MorvalenCore::Interfaces::IDesign *design() const;
    MorvalenCore::BuildDescription edited() const;
    void load(const MorvalenCore::BuildDescription &description);
    // Shows what the user has had before, or had behind that.
    void showEdited(const MorvalenCore::BuildDescription &description);
    void noteChange();
    void showProblems();
    // Looks at what the design holds by now.
    void follow();
    void followDescription(const MorvalenCore::BuildDescription &theirs);
    void followLoss();
    void keepMine();
    void updateNotice();
    void updateIdentity();
    Qtilities::Core::Status write(MorvalenCore::Interfaces::IDesign &design);

    QPointer<QObject> designObject;
    QPointer<MorvalenCore::BuildConfiguration> configuration;
    // What the page was filled with, or has last saved.
    MorvalenCore::BuildDescription base;
    QString pageKey;
    QString designName;
    // Somebody else has changed what the user has changed too.
    bool isInConflict = false;
    // The design has taken the changes, but they are not in its file.
    bool isUnwritten = false;

    DescriptionHistory history;
    NoticeBar *notice;
    QLabel *problems;
    QLineEdit *name;
    QLineEdit *targetPath;
    MacroEditor *macros;
    StepEditor *steps;
    StepStates *states;
};
