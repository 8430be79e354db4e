#pragma once

#include <MorvalenCore/MorvalenCoreExport.h>
#include <Qtilities/Status.h>

#include <QObject>
#include <QWidget>

namespace MorvalenCore {

// Opens files in editors. One manager per process; the program with a window replaces it by one
// that has editors to offer.
class MORVALENCORE_EXPORT EditorManager : public QObject
{
    Q_OBJECT

public:
    explicit EditorManager(QObject *parent = nullptr);
    ~EditorManager() override;

    // The manager: the one that was set, else one made on first use.
    static EditorManager *instance();

    // Replaces the manager, which stays the caller's; null brings the default back.
    static void setInstance(EditorManager *manager);

    // The editor that shows the file, which stays the manager's. The mode is empty for the usual
    // editor; bringUp shows it in front, readOnly forbids changes.
    virtual Qtilities::Core::Result<QWidget *>
    tryCreateEditorForPath(const QString &path, const QString &mode, bool bringUp, bool readOnly);
    // The same; null when there is none, with the reason in *error unless that is null.
    virtual QWidget *createEditorForPath(const QString &path, QString *error, const QString &mode,
                                         bool bringUp, bool readOnly);
};

} // namespace MorvalenCore
