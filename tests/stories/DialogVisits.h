#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <functional>

// Does something with each dialog that comes, one after the other; while it lives, a dialog that
// nobody expects is closed and counted, so that a test goes on and fails.
class DialogVisits : public QObject
{
public:
    using Visit = std::function<void(QDialog *)>;

    explicit DialogVisits(const QList<Visit> &theVisits = {}) : visits(theVisits)
    {
        timer.callOnTimeout(this, &DialogVisits::look);
        timer.start(5);
    }

    // Whether each visit was made, and no dialog came beside them.
    bool areDone() const { return visits.isEmpty() && unexpected.isEmpty(); }

    // The titles of dialogs that nobody expected.
    QStringList unexpected;

    // Presses the button with the text, without its mnemonic, of a message box that says this in
    // its title and its text. What it says in fact is compared.
    static Visit answer(const QString &said, const QString &button)
    {
        return [said, button](QDialog *dialog) {
            const auto *box = qobject_cast<QMessageBox *>(dialog);
            QVERIFY2(box, qPrintable(dialog->windowTitle()));
            QCOMPARE(box->windowTitle() + u'\n' + box->text(), said);
            press(dialog, button);
        };
    }

    // Types a path into a file dialog and presses Return.
    static Visit chooseFile(const QString &path)
    {
        return [path](QDialog *dialog) {
            auto *field = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
            QVERIFY2(field, qPrintable(dialog->windowTitle()));
            field->selectAll();
            QTest::keyClicks(field, path);
            QTest::keyClick(field, Qt::Key_Return);
        };
    }

    static void press(const QDialog *dialog, const QString &button)
    {
        const auto buttons = dialog->findChildren<QAbstractButton *>();
        for (QAbstractButton *candidate : buttons) {
            if (candidate->isVisible() && candidate->text().remove(QLatin1Char('&')) == button)
                return QTest::mouseClick(candidate, Qt::LeftButton);
        }
        QFAIL(qPrintable(QStringLiteral("no button ") + button));
    }

private:
    void look()
    {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog || dialog->property("visited").toBool())
            return;
        // It takes keys once it is active.
        if (!dialog->isActiveWindow())
            return dialog->activateWindow();
        dialog->setProperty("visited", true);
        if (visits.isEmpty()) {
            const auto *box = qobject_cast<QMessageBox *>(dialog);
            unexpected.append(dialog->windowTitle()
                              + (box ? QLatin1Char('\n') + box->text() : QString()));
            dialog->reject();
            return;
        }
        const QPointer<QDialog> visited(dialog);
        const bool hadFailed = QTest::currentTestFailed();
        visits.takeFirst()(dialog);
        // A visit that failed has left it open.
        if (visited && visited->isVisible() && !hadFailed && QTest::currentTestFailed())
            visited->reject();
    }

    QList<Visit> visits;
    QTimer timer;
};
