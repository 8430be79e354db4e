#pragma once

#include <MorvalenCore/MorvalenCoreExport.h>

#include <Qtilities/TreeItemBase.h>

namespace MorvalenCore {

// An action of the user's that runs a script file. It names the file and how to run it; a class
// for each script language derives from it and executes it.
class MORVALENCORE_EXPORT AbstractScriptedAction : public Qtilities::CoreGui::TreeItemBase
{
    Q_OBJECT

public:
    // Where an action is offered; the numbers are fixed.
    enum UserActionType { MenuAction = 0, ToolAction = 1, BuildAction = 2, EmbeddedAction = 7 };

    explicit AbstractScriptedAction(QObject *parent = nullptr);
    ~AbstractScriptedAction() override;

    // The script file, as it was set.
    virtual QString filePath() const { return path; }
    virtual void setFilePath(const QString &filePath) { path = filePath; }
    // Whether it is a file; a folder or a device is not a script.
    virtual bool filePathExists() const;

    // The whole file as UTF-8 text without a byte order mark; empty when it is empty or cannot be
    // read, and the log then warns, as it does of bytes that are not UTF-8.
    virtual QString fileContents() const;

    virtual bool showExecutionLog() const { return showLog; }
    virtual void setShowExecutionLog(bool show) { showLog = show; }

    virtual int userActionType() const { return actionType; }
    virtual void setUserActionType(int type) { actionType = type; }

    virtual void execute() = 0;

    // 0 when the script was run, whatever came of it, else -1. ok and errorMessage may be null
    // and are written only where there is something to say.
    virtual int execute(bool *ok, QString *errorMessage) = 0;

    // Bracket changes that a script makes; see ChangeBracket.
    static void initExec();
    static void finalizeExec();

private:
    QString path;
    bool showLog = false;
    int actionType = MenuAction;
};

} // namespace MorvalenCore
