#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

// Answers the next message box with the mouse, and keeps what it said. It must outlive the box.
class DialogAnswer : public QObject
{
public:
    explicit DialogAnswer(QMessageBox::StandardButton theButton) : button(theButton)
    {
        timer.callOnTimeout(this, &DialogAnswer::look);
        timer.start(5);
    }

    // What the box said: title, text, further text and buttons, one line each; empty when there
    // was none.
    QString said;

private:
    void look()
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        timer.stop();
        QStringList buttons;
        for (const QAbstractButton *offered : box->buttons())
            buttons.append(offered->text());
        QStringList lines {box->windowTitle(), box->text(), box->informativeText(),
                           buttons.join(u' ')};
        lines.removeAll(QString());
        said = lines.join(u'\n');
        QTest::mouseClick(box->button(button), Qt::LeftButton);
    }

    const QMessageBox::StandardButton button;
    QTimer timer;
};
