#pragma once

#include <MorvalenCore/EditorManager.h>

#include <QPointer>

class EditorArea;
class QTimer;
class TextPage;

// Opens files in the editor area of the window: one page for each file. It keeps users from
// changing what the designs have in memory: the component file of an open design, and the files of
// a read-only one, are shown for reading only while that is so.
class WindowEditorManager : public MorvalenCore::EditorManager
{
    Q_OBJECT

public:
    // The area may go first; then nothing can be opened any more.
    explicit WindowEditorManager(EditorArea *area, QObject *parent = nullptr);
    // Gives its place to the default when it was set.
    ~WindowEditorManager() override;

    // The mode is empty or "text".
    Qtilities::Core::Result<QWidget *> tryCreateEditorForPath(const QString &path,
                                                              const QString &mode, bool bringUp,
                                                              bool readOnly) override;
    // A reason that nobody asks for goes to the log.
    QWidget *createEditorForPath(const QString &path, QString *error, const QString &mode,
                                 bool bringUp, bool readOnly) override;

Q_SIGNALS:
    // A page comes to the front of the area, which may be out of sight; the page takes the focus
    // afterwards.
    void bringUpRequested();

private:
    Qtilities::Core::Result<TextPage *> open(const QString &path, const QString &mode);
    void updateProtection();

    QPointer<EditorArea> area;
    QTimer *protectionTimer;
};
