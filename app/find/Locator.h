#pragma once

#include "app/find/LocatorModel.h"

#include <QDialog>

class QLineEdit;
class QListView;

// Goes to a file of an open design, a design, a command, a script or a setting by a part of its
// name: Up and Down choose while the name is typed, Return goes.
class Locator : public QDialog
{
    Q_OBJECT

public:
    explicit Locator(QWidget *parent = nullptr);

    // Scripts and settings are what the window knows; the rest is looked up now.
    void begin(const QStringList &scripts, const QStringList &settings);

Q_SIGNALS:
    void chosen(LocatorModel::Kind kind, const QString &target);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void filter(const QString &text);
    void choose();

    LocatorModel *model;
    QLineEdit *field;
    QListView *list;
};
