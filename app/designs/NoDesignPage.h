#pragma once

#include <QWidget>

class QPushButton;
class QVBoxLayout;

// What is shown while no design is open: how to begin.
class NoDesignPage : public QWidget
{
    Q_OBJECT

public:
    explicit NoDesignPage(QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void addButton(QVBoxLayout *layout, const QString &text, const QString &actionName);

    // Each with the name of the window's action that it stands for.
    QList<std::pair<QPushButton *, QString>> buttons;
};
