#pragma once

#include "LogModel.h"

#include <QTableView>

namespace Qtilities::CoreGui {

// Shows the rows of a log model as plain text, in lines of equal height. It follows the end of the
// log as long as it stands there, and otherwise keeps what the user is reading in place. A double
// click or F2 opens a line as a field in which parts of it can be selected and copied. A click on a
// link follows it, and so does Return, for the first link of the line.
class LogView : public QTableView
{
    Q_OBJECT

public:
    // The model stays the caller's.
    explicit LogView(LogModel *model, QWidget *parent = nullptr);
    ~LogView() override;

    // Shows what was appended to the model. With now also when no event loop is running, as while
    // a script runs.
    void publish(bool now);

    // Marks what is equal to the text, in any case, in all lines; an empty text marks nothing.
    void markAll(const QString &text);
    // Brings the next line that holds the text into view, and selects nothing.
    void showNext(const QString &text);

    // Selects the next row that holds the text and brings it into view; false when none does.
    bool selectNext(const QString &text, bool backwards);

    // Puts the selected lines on the clipboard, all when none is selected; with time and level on
    // demand.
    void copyLines(bool withTimeAndLevel) const;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    // A place of a row's text where a link begins; a negative one stands for none.
    struct Link
    {
        int row = -1;
        qsizetype start = -1;

        bool operator==(const Link &) const = default;
    };

    Link linkAt(const QPoint &position) const;
    void follow(const Link &link);
    void followFirstLink();
    void widenForRows(int first, int last);
    void fitTextColumn();
    void followEnd();
    void followPalette();
    QList<int> chosenRows() const;

    LogModel *log;
    // Of the widest line so far, in pixels.
    int textWidth = 0;
    int removedRows = 0;
    // Whether the end is to stay in view; what happens out of sight is not the user's doing.
    bool isAtEnd = true;
    Link pressed;
};

} // namespace Qtilities::CoreGui
