#include "app/messages/messages.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QCoreApplication>
#include <QDesktopServices>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QUrl>

namespace messages {

namespace {

constexpr int milliseconds = 15'000;

// What a box shows at once; the rest is behind its button for details.
constexpr qsizetype lineLimit = 8;

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

void warn(QWidget *window, const QString &title, const QStringList &lines)
{
    auto *box = new QMessageBox(QMessageBox::Warning, title, QString(), QMessageBox::Ok, window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setText(lines.first(std::min(lines.size(), lineLimit)).join(u'\n'));
    if (lines.size() > lineLimit) {
        box->setInformativeText(
            QMessageBox::tr("And %n more.", nullptr, int(lines.size() - lineLimit)));
        box->setDetailedText(lines.join(u'\n'));
    }
    box->open();
}

void tell(const QString &text)
{
    if (QMainWindow *window = Qtilities::CoreGui::QtilitiesApplication::mainWindow())
        window->statusBar()->showMessage(text, milliseconds);
}

void showFolder(const QString &folder)
{
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        tell(QCoreApplication::translate("messages", "No program of the desktop shows \"%1\"")
                 .arg(folder));
}

} // namespace messages
