#include "app/help/HelpMenu.h"

#include "app/help/helptexts.h"
#include "app/help/manualpages.h"

#include <QApplication>
#include <QMessageBox>
#include <QTextEdit>

#include <tcl.h>

using namespace Qt::Literals::StringLiterals;

namespace {

// The command that the cursor of a text stands in or right behind; empty when it is none.
QString commandAtCursor(const QWidget *focused)
{
    const auto *text = qobject_cast<const QTextEdit *>(focused);
    if (!text)
        return QString();
    QTextCursor cursor = text->textCursor();
    cursor.select(QTextCursor::WordUnderCursor);
    const QString word = cursor.selectedText();
    return manualpages::names().contains(word) ? word : QString();
}

} // namespace

HelpMenu::HelpMenu(QWidget *theWindow) : QMenu(tr("&Help"), theWindow), window(theWindow)
{
    setObjectName(u"helpMenu"_s);
    QAction *manual = addAction(tr("&Commands"), QKeySequence(Qt::Key_F1));
    manual->setObjectName(u"showManual"_s);
    connect(manual, &QAction::triggered, this, &HelpMenu::askForManual);
    QAction *guide = addAction(tr("&The Window"));
    guide->setObjectName(u"showGuide"_s);
    connect(guide, &QAction::triggered, this, &HelpMenu::showGuide);
    QAction *keys = addAction(tr("&Keys"));
    keys->setObjectName(u"showKeys"_s);
    connect(keys, &QAction::triggered, this, &HelpMenu::showKeys);
    addSeparator();
    QAction *about = addAction(tr("&About Morvalen"));
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, &HelpMenu::showAbout);
}

void HelpMenu::askForManual() { Q_EMIT manualWanted(commandAtCursor(QApplication::focusWidget())); }

void HelpMenu::showGuide() { helptexts::show(tr("The Window"), helptexts::guide(), window); }

void HelpMenu::showKeys() { helptexts::show(tr("Keys"), helptexts::keys(window), window); }

void HelpMenu::showAbout()
{
    QMessageBox::about(window, tr("About Morvalen"),
                       tr("<h3>Morvalen %1</h3>"
                          "<p>Designs as IP-XACT components, and Tcl to script them.</p>"
                          "<p>Qt %2, Tcl %3</p>")
                           .arg(QCoreApplication::applicationVersion().toHtmlEscaped(),
                                QString::fromLatin1(qVersion()),
                                QString::fromLatin1(TCL_PATCH_LEVEL)));
}
