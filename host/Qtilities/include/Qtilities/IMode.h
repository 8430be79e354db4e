#pragma once

#include <Qtilities/CoreGuiConstants.h>
#include <Qtilities/IContext.h>

#include <QIcon>
#include <QList>
#include <QWidget>

namespace Qtilities::CoreGui::Interfaces {

// A mode of the main window: a widget that fills it, chosen by an icon in the mode bar.
class IMode : public Core::Interfaces::IContext
{
public:
    explicit IMode(const QList<int> &modeManagerIds = {Constants::qti_def_DEFAULT_MODE_MANAGER})
        : managers(modeManagerIds)
    {
    }

    // The widget of the mode; stays owned by the mode's implementer.
    virtual QWidget *modeWidget() = 0;

    // Called once or more before the mode is shown for the first time.
    virtual void initializeMode() = 0;

    // Called right before and right after the mode becomes the visible one.
    virtual void aboutToBeActivated() { }
    virtual void justActivated() { }

    virtual QIcon modeIcon() const { return icon; }
    virtual void setModeIcon(QIcon newIcon) { icon = newIcon; }

    // The name below the icon, in the user's language.
    virtual QString modeName() const = 0;

    // A number that no other mode has.
    virtual int modeID() const = 0;

    // The mode managers in which the mode may appear.
    QList<int> modeManagerIds() const { return managers; }

private:
    QList<int> managers;
    QIcon icon;
};

} // namespace Qtilities::CoreGui::Interfaces

Q_DECLARE_INTERFACE(Qtilities::CoreGui::Interfaces::IMode, "com.Qtilities.CoreGui.IMode/1.0")
