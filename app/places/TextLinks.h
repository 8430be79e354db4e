#pragma once

#include <QList>
#include <QObject>
#include <QTextEdit>
#include <QTimer>

#include <functional>
#include <memory>

class QPlainTextEdit;

// Makes the places of files that a text names links: those in sight are underlined, and a click on
// one leads there; so does Return where the text cannot be changed and the cursor is on a line with
// one. One per widget, which owns it and whose extra selections it uses.
class TextLinks : public QObject
{
    Q_OBJECT

public:
    struct Link
    {
        qsizetype start = 0;
        qsizetype length = 0;
    };
    // The links of a line.
    using Find = std::function<QList<Link>(const QString &line)>;
    // Goes where the one that begins at a place of the line leads.
    using Follow = std::function<void(const QString &line, qsizetype start)>;

    TextLinks(QTextEdit *edit, Find find, Follow follow);
    TextLinks(QPlainTextEdit *edit, Find find, Follow follow);
    ~TextLinks() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Face;

    TextLinks(QWidget *edit, std::unique_ptr<Face> itsFace, Find find, Follow follow);
    void show();
    // Where the link at a place of the viewport begins; a null cursor when there is none.
    QTextCursor linkAt(const QPoint &position) const;
    void followAt(const QPoint &position);
    void showCursor(bool isOverLink);
    bool followCursor();

    std::unique_ptr<Face> face;
    QWidget *const viewport; // of the face, which is less than itself when the viewport goes
    Find find;
    Follow follow;
    QTimer showing;
    QTextCursor pressed;
    bool isOver = false;
};
