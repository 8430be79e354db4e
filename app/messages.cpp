#include "app/messages.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>

namespace messages {

namespace {

constexpr int milliseconds = 15'000;

} // namespace

bool confirm(QWidget *parent, const QString &title, const QString &text, const QString &details,
             const QString &goOn)
{
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Cancel, parent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(details);
    const QPushButton *button = box.addButton(goOn, QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == button;
}

void tell(const QString &text)
{
    if (QMainWindow *window = Qtilities::CoreGui::QtilitiesApplication::mainWindow())
        window->statusBar()->showMessage(text, milliseconds);
}

} // namespace messages
