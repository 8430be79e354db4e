#include "app/journal/JournalDock.h"

#include "app/drawing/actionicons.h"
#include "app/journal/CommandJournal.h"

#include <Qtilities/atomicfile.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QClipboard>
#include <QFileDialog>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;

JournalDock::JournalDock(QWidget *parent)
    : QDockWidget(tr("Journal"), parent),
      text(new QPlainTextEdit(this))
{
    setObjectName(u"journalDock"_s);
    text->setObjectName(u"journal"_s);
    text->setAccessibleName(tr("Journal"));
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text->setPlaceholderText(tr("What you change in designs and projects shows here as the "
                                "commands that do it."));
    auto *inside = new QWidget(this);
    auto *bar = new QWidget(inside);
    addButtons(bar);
    auto *layout = new QVBoxLayout(inside);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(text);
    layout->addWidget(bar);
    setWidget(inside);
    setFocusProxy(text);
    for (const QString &entry : CommandJournal::instance()->entries())
        append(entry);
    connect(CommandJournal::instance(), &CommandJournal::added, this, &JournalDock::append);
    connect(CommandJournal::instance(), &CommandJournal::cleared, text, &QPlainTextEdit::clear);
}

void JournalDock::addButtons(QWidget *bar)
{
    auto *row = new QHBoxLayout(bar);
    row->addStretch();
    const auto add = [&](ActionIcon icon, const QString &label, const char *name,
                         void (JournalDock::*act)()) {
        auto *button = new QPushButton(actionicons::icon(icon), label, bar);
        button->setObjectName(QLatin1StringView(name));
        connect(button, &QPushButton::clicked, this, act);
        row->addWidget(button);
    };
    add(ActionIcon::Copy, tr("Copy"), "journalCopy", &JournalDock::copy);
    add(ActionIcon::Save, tr("Save as Script..."), "journalSave", &JournalDock::saveAsScript);
    add(ActionIcon::RunAgain, tr("Run Again from Here"), "journalRun", &JournalDock::runFromHere);
}

// An entry of several lines stays one paragraph each; its number stands with each of them.
void JournalDock::append(const QString &entry)
{
    const int number = text->document()->lastBlock().userState() + 1;
    for (const QString &line : entry.split(u'\n')) {
        text->appendPlainText(line);
        text->document()->lastBlock().setUserState(number);
    }
}

void JournalDock::copy()
{
    const QTextCursor cursor = text->textCursor();
    QGuiApplication::clipboard()->setText(cursor.hasSelection()
                                              ? cursor.selection().toPlainText()
                                              : CommandJournal::instance()->text());
}

void JournalDock::saveAsScript()
{
    const QString file = QFileDialog::getSaveFileName(this, tr("Save as Script"),
                                                      QtilitiesApplication::applicationSessionPath()
                                                          + u"/Scripts/journal.tcl"_s,
                                                      tr("Tcl scripts (*.tcl)"));
    if (file.isEmpty())
        return;
    const auto written =
        Qtilities::Core::writeFileAtomically(file, CommandJournal::instance()->text().toUtf8());
    if (!written.isOk())
        QMessageBox::warning(this, tr("Not Saved"), written.text());
}

QStringList JournalDock::fromHere() const
{
    const int number = qMax(0, text->textCursor().block().userState());
    return CommandJournal::instance()->entries().mid(number);
}

void JournalDock::runFromHere()
{
    const QStringList entries = fromHere();
    if (!entries.isEmpty())
        Q_EMIT runWanted(entries);
}
