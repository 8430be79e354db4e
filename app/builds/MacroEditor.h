#pragma once

#include <MorvalenCore/BuildMacro.h>

#include <QWidget>

class QPushButton;
class QTableWidget;

// Lets the user change the macros of a build configuration.
class MacroEditor : public QWidget
{
    Q_OBJECT

public:
    explicit MacroEditor(QWidget *parent = nullptr);
    ~MacroEditor() override;

    // With what is being typed.
    QList<MorvalenCore::BuildMacro> macros() const;
    void setMacros(const QList<MorvalenCore::BuildMacro> &macros);
    void setReadOnly(bool flag);
    // Marks rows whose names cannot stay, and says why, a line each.
    QStringList markProblems();

Q_SIGNALS:
    void changed();

private:
    bool isTyping() const;
    void setRow(int row, const MorvalenCore::BuildMacro &macro);
    void add();
    void remove();
    void updateButtons();

    QTableWidget *table;
    QPushButton *addButton;
    QPushButton *removeButton;
    bool readOnly = false;
};
