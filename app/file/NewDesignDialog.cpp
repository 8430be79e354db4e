#include "app/file/NewDesignDialog.h"

#include "app/calls/commandcall.h"
#include "app/calls/running.h"
#include "app/file/shownpath.h"
#include "app/journal/journaling.h"
#include "app/session/Settings.h"
#include "commands/commands.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/DesignStructureManager.h>
#include <MorvalenCore/settingkeys.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::DesignStructureManager;
using Qtilities::Core::Status;

namespace {

constexpr int nameLength = 50; // in characters, as wide as the field is
constexpr int problemLines = 3;

QString usualVendor()
{
    return Settings(DesignManager::instance()->settingsFileName())
        .value(MorvalenCore::SettingKeys::vendor)
        .toString();
}

QLabel *plainLabel(QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

NewDesignDialog::NewDesignDialog(QWidget *parent)
    : QDialog(parent),
      name(new QLineEdit(this)),
      type(new QComboBox(this)),
      structure(new QComboBox(this)),
      vendor(new QLineEdit(usualVendor(), this)),
      library(new QLineEdit(u"global"_s, this)),
      folder(plainLabel(this)),
      problem(plainLabel(this))
{
    setObjectName(u"newDesignDialog"_s);
    setWindowTitle(tr("New Design"));
    addFields();
    type->addItems(DesignManager::instance()->designTypes());
    showStructures();
    check();
    connect(name, &QLineEdit::textChanged, this, &NewDesignDialog::check);
    connect(structure, &QComboBox::currentTextChanged, this, &NewDesignDialog::check);
    connect(type, &QComboBox::currentTextChanged, this, &NewDesignDialog::showStructures);
}

void NewDesignDialog::addFields()
{
    name->setObjectName(u"designName"_s);
    name->setMinimumWidth(fontMetrics().averageCharWidth() * nameLength);
    type->setObjectName(u"designType"_s);
    structure->setObjectName(u"designStructure"_s);
    vendor->setObjectName(u"designVendor"_s);
    library->setObjectName(u"designLibrary"_s);
    problem->setObjectName(u"problem"_s);
    // Room for a sentence, so that the dialog keeps its size while the name is typed.
    problem->setMinimumHeight(fontMetrics().lineSpacing() * problemLines);
    problem->setAlignment(Qt::AlignTop);
    folder->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    create = buttons->addButton(tr("&Create"), QDialogButtonBox::AcceptRole);
    create->setObjectName(u"create"_s);
    create->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *form = new QFormLayout(this);
    form->addRow(tr("&Name:"), name);
    form->addRow(tr("&Type:"), type);
    form->addRow(tr("&Structure:"), structure);
    form->addRow(tr("&Vendor:"), vendor);
    form->addRow(tr("&Library:"), library);
    form->addRow(tr("Folder:"), folder);
    form->addRow(problem);
    form->addRow(buttons);
}

void NewDesignDialog::showStructures()
{
    const DesignStructureManager *manager = DesignStructureManager::instance();
    structure->clear();
    structure->addItems(manager->designStructureNamesForDesign(type->currentText()));
    structure->setCurrentText(manager->defaultStructureNameForDesignType(type->currentText()));
}

void NewDesignDialog::check()
{
    const Qtilities::Core::Status status = DesignManager::instance()->tryDesignName(name->text());
    create->setEnabled(status.isOk());
    showProblem(name->text().isEmpty() ? QString() : status.text());
    const QString repository =
        DesignStructureManager::instance()->activeDesignRepositoryPathForStructure(
            structure->currentText(), false);
    folder->setText(shownPath(QDir::cleanPath(repository + u'/' + name->text())));
}

void NewDesignDialog::showProblem(const QString &text)
{
    problem->setText(text);
    name->setAccessibleDescription(text);
}

void NewDesignDialog::accept()
{
    if (const Status free = running::check(); !free.isOk())
        return showProblem(free.text());
    const QStringList words {
        u"designs"_s,    u"new"_s,      name->text(), type->currentText(), structure->currentText(),
        library->text(), vendor->text()};
    const CommandAnswer answer = callCommand(CallDesigns, words);
    if (answer.succeeded) {
        journaling::made(words);
        return QDialog::accept();
    }
    showProblem(QStringList {answer.text, answer.reasons.join(u'\n')}.join(u'\n').trimmed());
}
