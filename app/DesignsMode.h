#pragma once

#include <Qtilities/IMode.h>

#include <QWidget>

class EditorArea;

// The Designs mode: the editors. The tree of open designs stands beside every mode.
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
    EditorArea *editors;
};
