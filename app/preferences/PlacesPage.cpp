#include "app/preferences/PlacesPage.h"

#include "app/session/preferences.h"

#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::ProjectManagement::ProjectManager;

namespace {

QString usualProjects() { return QtilitiesApplication::applicationSessionPath() + u"/Projects"_s; }

QLabel *note(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setWordWrap(true);
    return label;
}

} // namespace

PlacesPage::PlacesPage(QWidget *parent)
    : PreferencesPage(parent),
      launcher(new QLineEdit(preferences::launcher(), this)),
      targets(new QPlainTextEdit(preferences::targetFolders().join(u'\n'), this)),
      projects(new QLineEdit(ProjectManager::instance()->customProjectsPath(QString()), this))
{
    launcher->setObjectName(u"launcher"_s);
    projects->setObjectName(u"projectsPath"_s);
    launcher->setPlaceholderText(tr("none"));
    targets->setObjectName(u"targetFolders"_s);
    targets->setPlaceholderText(tr("none"));
    targets->setTabChangesFocus(true);
    targets->setLineWrapMode(QPlainTextEdit::NoWrap);
    targets->setMaximumHeight(5 * targets->fontMetrics().lineSpacing());
    projects->setPlaceholderText(QDir::toNativeSeparators(usualProjects()));
    auto *form = new QFormLayout(this);
    form->addRow(tr("&Launcher of build steps:"), launcher);
    form->addRow(note(tr("A command that is put in front of the command of every build step, to "
                         "hand it to a compiler farm or a batch queue."),
                      this));
    form->addRow(tr("Folders for &targets:"), targets);
    form->addRow(
        note(tr("Folders outside of a design's own that its builds may write to, such as a "
                "scratch disk; one on each line."),
             this));
    form->addRow(tr("&Folder of projects:"), projectsRow());
    form->addRow(note(tr("Where projects are opened and saved unless you say otherwise."), this));
}

QLayout *PlacesPage::projectsRow()
{
    auto *choose = new QPushButton(tr("&Choose..."), this);
    connect(choose, &QPushButton::clicked, this, &PlacesPage::chooseFolder);
    auto *row = new QHBoxLayout;
    row->addWidget(projects);
    row->addWidget(choose);
    return row;
}

void PlacesPage::chooseFolder()
{
    const QString shown = projects->text().isEmpty() ? usualProjects() : projects->text();
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Folder of Projects"), shown);
    if (!folder.isEmpty())
        projects->setText(QDir::toNativeSeparators(folder));
}

QStringList PlacesPage::targetFolders() const
{
    QStringList folders;
    const QStringList lines = targets->toPlainText().split(u'\n');
    for (const QString &line : lines) {
        if (!line.trimmed().isEmpty())
            folders.append(line.trimmed());
    }
    folders.removeDuplicates();
    return folders;
}

void PlacesPage::apply()
{
    preferences::setLauncher(launcher->text().trimmed());
    preferences::setTargetFolders(targetFolders());
    const QString folder = QDir::fromNativeSeparators(projects->text().trimmed());
    if (folder != ProjectManager::instance()->customProjectsPath(QString()))
        ProjectManager::instance()->setCustomProjectsPath(folder);
}

void PlacesPage::showUsual()
{
    launcher->clear();
    targets->clear();
    projects->clear();
}
