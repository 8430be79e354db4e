#pragma once

#include <QLabel>
#include <QString>

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QTextEdit;
QT_END_NAMESPACE

// What is typed into a console while a command runs, for the next prompt. It is shown as it comes,
// in a line at the foot of the view.
class TypeAhead : public QObject
{
    Q_OBJECT

public:
    explicit TypeAhead(QTextEdit *view);

    // Keeps what the key types: a text, the end of a line, or the removal of the last character of
    // a line that has not ended. False for any other key.
    bool take(const QKeyEvent &event);
    void append(const QString &text);
    void clear();

    bool isEmpty() const { return kept.isEmpty(); }

    // Takes the first line out, with the line feed at its end, if it has ended.
    QString takeLine();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void show();
    void place();

    QString kept;
    QTextEdit *const view;
    QLabel *const line; // the view's
};
