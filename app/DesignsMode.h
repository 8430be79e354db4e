#pragma once

#include <Qtilities/IMode.h>

#include <QWidget>

class EditorArea;
class QStackedLayout;
class QTimer;
class QTreeWidget;

// The Designs mode: on the left the open designs in the order of opening, the active one marked;
// on the right the editors. It follows the design manager once control is back in the event loop.
class DesignsMode : public QWidget, public Qtilities::CoreGui::Interfaces::IMode
{
    Q_OBJECT
    Q_INTERFACES(Qtilities::CoreGui::Interfaces::IMode)

public:
    static constexpr int id = 1;

    explicit DesignsMode(QWidget *parent = nullptr);

    QString contextString() const override;
    QString contextHelpId() const override;
    QWidget *modeWidget() override { return this; }
    void initializeMode() override { }
    QIcon modeIcon() const override;
    QString modeName() const override;
    int modeID() const override { return id; }

    QObject *objectBase() override { return this; }
    const QObject *objectBase() const override { return this; }

    EditorArea *editorArea() const { return editors; }

private:
    void refresh();
    void activateDesign(const QString &designId);

    EditorArea *editors;
    QStackedLayout *pages;
    QTreeWidget *designs;
    QTimer *refreshTimer;
};
