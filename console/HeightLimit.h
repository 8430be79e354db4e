#pragma once

#include <QObject>

QT_BEGIN_NAMESPACE
class QTextBlock;
class QTextEdit;
QT_END_NAMESPACE

// Keeps the text of a text widget from growing too high to be laid out: Qt's layout never returns
// from a line that begins below 8,388,607 pixels, which are some 600,000 lines. Before that, the
// oldest paragraphs are taken out of sight; they stay in the text, to be copied or searched.
//
// The widget owns its limit and outlives it.
class HeightLimit : public QObject
{
public:
    // In pixels: the height from which on paragraphs are hidden, and what is left then; and the
    // height that a change may not bring even before it is laid out, when hiding takes longer.
    struct Heights
    {
        double most = 7'000'000;
        double kept = 2'500'000;
        double never = 8'000'000;
    };

    explicit HeightLimit(QTextEdit *widget) : HeightLimit(widget, Heights()) { }
    HeightLimit(QTextEdit *widget, const Heights &heights);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    class Guess;

    void add(int from, int removed, int added);
    void keepBelow(double height);
    void cut(const Guess &guess, bool layoutIsOld);
    void hideBefore(const QTextBlock &firstKept);

    QTextEdit *const view;
    const Heights limits;
    double total = 0; // of the paragraphs that show, at least
};
