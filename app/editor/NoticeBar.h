#pragma once

#include <QFrame>
#include <QList>

#include <functional>

class QGridLayout;
class QHBoxLayout;
class QLabel;

// A strip above a page that says something, and offers what can be done about it: beside the text,
// or below where that would leave the text no room.
class NoticeBar : public QFrame
{
    Q_OBJECT

public:
    struct Choice
    {
        QString text;
        std::function<void()> act;
    };

    explicit NoticeBar(QWidget *parent = nullptr);

    // Shows a text and a button for each choice, in place of what was shown; an empty text hides
    // the strip. A choice may show something else.
    void show(const QString &text, const QList<Choice> &choices = {});

    QString text() const;

private:
    void resizeEvent(QResizeEvent *event) override;
    void arrange();

    QLabel *label;
    QWidget *offers;
    QHBoxLayout *offerRow;
    QGridLayout *cells;
    QList<QWidget *> buttons;
};
