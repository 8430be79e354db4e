#include "app/help/helptexts.h"

#include <QAction>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QMap>
#include <QTextBrowser>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace helptexts {

namespace {

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(helptexts)
};

constexpr QSize dialogSize(620, 560);

// Without its mnemonic, and without what is only shown behind a tab.
QString plain(QString text)
{
    text = text.section(u'\t', 0, 0);
    text.replace(u"&&"_s, u"\uFFFC"_s).remove(u'&').replace(u'\uFFFC', u'&');
    return text;
}

QString cell(QString text) { return text.replace(u'|', u"\\|"_s).replace(u'<', u"&lt;"_s); }

} // namespace

QString guide()
{
    return Texts::tr(
        "# The Window\n\n"
        "**Modes** on the left: Designs has the tree and the editors, Scripting the Tcl console. "
        "The tree stays beside both.\n\n"
        "**The tree** shows the open designs with their files, folders, properties and build "
        "configurations. What is active is bold. Each row has a menu; Shift+F10 opens it. The "
        "line above finds by name, path and category.\n\n"
        "**Editors** open with a double click. A text is kept aside while it is not saved, and is "
        "offered again after a crash. Tab indents the selected lines, Ctrl+/ makes them comments, "
        "Ctrl+\\\\ splits the page.\n\n"
        "**Log, Issues and Journal** are below. A file with a line leads there with a click or "
        "Return. The journal has what you change as the commands that do it; it can be copied, "
        "kept as a script and run again.\n\n"
        "**Scripts** are the Tcl files of the session's folder Scripts. While one runs, the window "
        "can be looked at and Stop ends it.\n\n"
        "**Build** makes what the active configuration describes, with Ninja.\n\n"
        "**Find**: Ctrl+K goes to files, designs, commands, scripts and settings by name.\n");
}

QString keys(const QWidget *window)
{
    QMap<QString, QStringList> rows;
    for (const QAction *action : window->findChildren<QAction *>()) {
        const QString text = plain(action->text());
        if (text.isEmpty() || action->shortcuts().isEmpty())
            continue;
        QStringList shown;
        for (const QKeySequence &key : action->shortcuts())
            shown.append(key.toString(QKeySequence::NativeText));
        rows[text] += shown;
    }
    QString page = u"# %1\n\n| %2 | %3 |\n|---|---|\n"_s.arg(Texts::tr("Keys"), Texts::tr("Action"),
                                                             Texts::tr("Key"));
    for (auto row = rows.begin(); row != rows.end(); ++row) {
        row->removeDuplicates();
        page += u"| %1 | %2 |\n"_s.arg(cell(row.key()), cell(row->join(u", "_s)));
    }
    return page;
}

void show(const QString &title, const QString &markdown, QWidget *window)
{
    auto *dialog = new QDialog(window);
    dialog->setObjectName(u"helpText"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(title);
    dialog->resize(dialogSize);
    auto *text = new QTextBrowser(dialog);
    text->setAccessibleName(title);
    text->setMarkdown(markdown);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    auto *layout = new QVBoxLayout(dialog);
    layout->addWidget(text);
    layout->addWidget(buttons);
    dialog->show();
}

} // namespace helptexts
