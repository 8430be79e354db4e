#include "app/preferences/PlacesPage.h"

#include "app/session/preferences.h"

#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>

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

constexpr int mostJobs = 10'000;

QString textOf(const QMap<QString, QString> &pools)
{
    QStringList lines;
    for (auto pool = pools.cbegin(); pool != pools.cend(); ++pool)
        lines.append(pool.key() + u'=' + *pool);
    return lines.join(u'\n');
}

} // namespace

PlacesPage::PlacesPage(QWidget *parent)
    : PreferencesPage(parent),
      launcher(new QLineEdit(preferences::launcher(), this)),
      jobs(new QSpinBox(this)),
      keepGoing(new QCheckBox(tr("&Go on with what does not depend on a failed step"), this)),
      pools(new QPlainTextEdit(textOf(preferences::pools()), this)),
      targets(new QPlainTextEdit(preferences::targetFolders().join(u'\n'), this)),
      projects(new QLineEdit(ProjectManager::instance()->customProjectsPath(QString()), this))
{
    launcher->setObjectName(u"launcher"_s);
    projects->setObjectName(u"projectsPath"_s);
    launcher->setPlaceholderText(tr("none"));
    jobs->setObjectName(u"jobs"_s);
    jobs->setRange(0, mostJobs);
    jobs->setSpecialValueText(tr("as many as fit this machine"));
    jobs->setValue(preferences::jobs());
    keepGoing->setObjectName(u"keepGoing"_s);
    keepGoing->setChecked(preferences::keepsGoing());
    pools->setObjectName(u"pools"_s);
    pools->setPlaceholderText(tr("none"));
    pools->setTabChangesFocus(true);
    pools->setLineWrapMode(QPlainTextEdit::NoWrap);
    pools->setMaximumHeight(4 * pools->fontMetrics().lineSpacing());
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
    form->addRow(tr("&Steps at the same time:"), jobs);
    form->addRow(QString(), keepGoing);
    form->addRow(tr("&Pools:"), pools);
    form->addRow(note(tr("What steps share, such as licences: a name, \"=\", and how many steps of "
                         "that pool run at once; one on each line."),
                      this));
    form->addRow(tr("Folders for &targets:"), targets);
    form->addRow(
        note(tr("Folders outside of a design's own that its builds may write to, such as a "
                "scratch disk; one on each line."),
             this));
    addProjects(form);
}

void PlacesPage::addProjects(QFormLayout *form)
{
    // Which of the two in the row is named.
    auto *label = new QLabel(tr("&Folder of projects:"), this);
    label->setBuddy(projects);
    auto *choose = new QPushButton(tr("&Choose..."), this);
    connect(choose, &QPushButton::clicked, this, &PlacesPage::chooseFolder);
    auto *row = new QHBoxLayout;
    row->addWidget(projects);
    row->addWidget(choose);
    form->addRow(label, row);
    form->addRow(note(tr("Where projects are opened and saved unless you say otherwise."), this));
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

// What is no number is kept: builds say what is wrong with it.
QMap<QString, QString> PlacesPage::poolDepths() const
{
    QMap<QString, QString> depths;
    const QStringList lines = pools->toPlainText().split(u'\n');
    for (const QString &line : lines) {
        const qsizetype sign = line.lastIndexOf(u'=');
        const QString name = line.left(sign).trimmed();
        if (!name.isEmpty())
            depths.insert(name, sign < 0 ? QString() : line.sliced(sign + 1).trimmed());
    }
    return depths;
}

void PlacesPage::apply()
{
    preferences::setLauncher(launcher->text().trimmed());
    preferences::setJobs(jobs->value());
    preferences::setKeepsGoing(keepGoing->isChecked());
    preferences::setPools(poolDepths());
    preferences::setTargetFolders(targetFolders());
    const QString folder = QDir::fromNativeSeparators(projects->text().trimmed());
    if (folder != ProjectManager::instance()->customProjectsPath(QString()))
        ProjectManager::instance()->setCustomProjectsPath(folder);
}

void PlacesPage::showUsual()
{
    launcher->clear();
    jobs->setValue(0);
    keepGoing->setChecked(false);
    pools->clear();
    targets->clear();
    projects->clear();
}
