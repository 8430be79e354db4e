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

    // Makes a script type known; what was known of it before is replaced.
    virtual void addKnownScriptType(const QString &scriptType,
                                    const LinkedScriptParameters &parameters);
    // In alphabetic order.
    virtual QStringList knownScriptTypes() const;
    // Three empty texts for a type that is not known.
    virtual LinkedScriptParameters scriptParameters(const QString &scriptType) const;

    // A new action for a script file of a known type, owned by the caller. It is made by the
    // design manager's factory for the type's instance tag and bears the file's name without the
    // suffix. Null when the type is not known, or its factory makes something else or is not
    // known to the design manager, which the log then says.
    virtual AbstractScriptedAction *createAction(const QString &scriptType,
                                                 const QString &filePath);

private:
    QMap<QString, LinkedScriptParameters> types;
};

} // namespace MorvalenCore
