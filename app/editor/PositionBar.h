#pragma once

#include <QWidget>

class QLabel;
class TextEdit;

// The strip below a text: where the cursor is, and what kind of file it is.
class PositionBar : public QWidget
{
    Q_OBJECT

public:
    explicit PositionBar(TextEdit *edit, QWidget *parent = nullptr);

    // How the file is written, such as "UTF-8, LF".
    void setForm(const QString &form);
    // What its text is, such as "Verilog"; may be empty.
    void setKind(const QString &kind);

    // The form and the kind as another strip has them.
    void take(const PositionBar &other);

    // All that the strip says.
    QString text() const;

private:
    void showPosition();

    TextEdit *edit;
    QLabel *position;
    QLabel *kind;
    QLabel *form;
};
