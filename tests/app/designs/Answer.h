#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <functional>

// Answers the next dialog that waits for the user, as long as it lives, and notes what it said.
class Answer : public QObject
{
public:
    // Does something with the dialog.
    explicit Answer(const std::function<void(QDialog *)> &theReply) : reply(theReply)
    {
        timer.setInterval(0);
        connect(&timer, &QTimer::timeout, this, &Answer::look);
        timer.start();
    }

    // Presses the button with that text.
    explicit Answer(const QString &button)
        : Answer([button](QDialog *dialog) { press(dialog, button); })
    {
    }

    bool isGiven() const { return given; }

    // Of a message box.
    QString question;
    QStringList lines;

    static void press(QDialog *dialog, const QString &text)
    {
        const auto buttons = dialog->findChildren<QAbstractButton *>();
        for (QAbstractButton *button : buttons) {
            if (button->text().remove(QLatin1Char('&')) == text) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        QTest::qFail(qPrintable(QStringLiteral("no button ") + text), __FILE__, __LINE__);
        dialog->reject();
    }

private:
    void look()
    {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        timer.stop();
        given = true;
        if (const auto *box = qobject_cast<QMessageBox *>(dialog)) {
            question = box->text();
            lines = box->informativeText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        }
        reply(dialog);
    }

    std::function<void(QDialog *)> reply;
    QTimer timer;
    bool given = false;
};
