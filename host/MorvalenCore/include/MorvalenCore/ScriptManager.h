#pragma once

#include <MorvalenCore/AbstractScriptedAction.h>
#include <MorvalenCore/LinkedScriptParameters.h>
#include <MorvalenCore/MorvalenCoreExport.h>

#include <QMap>
#include <QObject>
#include <QStringList>

namespace MorvalenCore {

// The script types that the program can run, and the actions made for script files. One manager
// per process.
class MORVALENCORE_EXPORT ScriptManager : public QObject
{
    Q_OBJECT

public:
    explicit ScriptManager(QObject *parent = nullptr);
    ~ScriptManager() override;

    // The manager: the one that was set, else one made on first use.
    static ScriptManager *instance();

    // Replaces the manager, which stays the caller's; null brings the default back.
    static void setInstance(ScriptManager *manager);

    virtual void addKnownScriptType(const QString &scriptType,
                                    const LinkedScriptParameters &parameters);
    virtual QStringList knownScriptTypes() const;
    virtual LinkedScriptParameters scriptParameters(const QString &scriptType) const;

    // A new action for a script file of a known type, made by the factory of its type and owned
    // by the caller; null when the type is not known.
    virtual AbstractScriptedAction *createAction(const QString &scriptType,
                                                 const QString &filePath);

private:
    QMap<QString, LinkedScriptParameters> types;
};

} // namespace MorvalenCore
