#pragma once

#include <Qtilities/QtilitiesCategory.h>

#include <QDialog>
#include <QVariant>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

// Asks for a property: its name, its type, and a value that is one of the type.
class PropertyDialog : public QDialog
{
    Q_OBJECT

public:
    // A property of a design also has a category, and may be read-only.
    enum Kind { DesignProperty, SharedProperty };

    explicit PropertyDialog(Kind kind, QWidget *parent = nullptr);

    // A property that is there keeps its name.
    void setProperty(const QString &name, const QVariant &value);

    QString name() const;
    // Invalid as long as the text is none of the type.
    QVariant value() const;
    Qtilities::Core::QtilitiesCategory category() const;
    bool isReadOnly() const;

private:
    void check();

    QLineEdit *nameLine;
    QComboBox *typeBox;
    QLineEdit *valueLine;
    QLineEdit *categoryLine = nullptr;
    QCheckBox *readOnlyBox = nullptr;
    QLabel *problem;
    QPushButton *ok;
};
