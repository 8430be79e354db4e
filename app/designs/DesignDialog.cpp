#include "app/designs/DesignDialog.h"

#include "app/calls/HostCall.h"
#include "app/journal/journaling.h"

#include <MorvalenCore/DesignManager.h>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;

namespace {

// In characters and lines.
constexpr int usualWidth = 70;
constexpr int descriptionHeight = 5;

QLabel *makeFact(const QString &text, QWidget *parent)
{
    auto *fact = new QLabel(text, parent);
    fact->setTextFormat(Qt::PlainText);
    fact->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    fact->setWordWrap(true);
    return fact;
}

// A read-only design has its new name checked as if it were a new design's: the dialog takes the
// flag away first.
Status checkName(const IDesign &design, const QString &name)
{
    const bool isFree = name != design.name() && design.isReadOnly();
    return DesignManager::instance()->tryDesignName(name, isFree ? nullptr : &design);
}

} // namespace

DesignDialog::DesignDialog(const TreeRow &designRow, QWidget *parent)
    : QDialog(parent),
      row(designRow)
{
    setObjectName(u"designDialog"_s);
    const IDesign &design = *row.design();
    setWindowTitle(tr("Properties of \"%1\"").arg(design.name()));
    auto *form = new QFormLayout(this);
    name = addLine(form, tr("&Name:"), design.name());
    vendor = addLine(form, tr("&Vendor:"), design.vendor());
    library = addLine(form, tr("&Library:"), design.library());
    author = addLine(form, tr("&Author:"), design.author());
    description = new QPlainTextEdit(design.description(), this);
    description->setTabChangesFocus(true);
    description->setFixedHeight(fontMetrics().lineSpacing() * (descriptionHeight + 1));
    form->addRow(tr("&Description:"), description);
    readOnly = new QCheckBox(tr("&Read-only"), this);
    readOnly->setChecked(design.isReadOnly());
    form->addRow(QString(), readOnly);
    addFacts(form, design);
    problem = new QLabel(this);
    problem->setObjectName(u"problem"_s);
    problem->setTextFormat(Qt::PlainText);
    problem->setWordWrap(true);
    form->addRow(problem);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok = buttons->button(QDialogButtonBox::Ok);
    form->addRow(buttons);

    connect(buttons, &QDialogButtonBox::accepted, this, &DesignDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(name, &QLineEdit::textChanged, this, &DesignDialog::check);
    connect(readOnly, &QCheckBox::toggled, this, &DesignDialog::check);
    connect(DesignManager::instance(), &DesignManager::designClosed, this, [this] {
        if (!row.isThere())
            reject();
    });
    resize(fontMetrics().averageCharWidth() * usualWidth, sizeHint().height());
    check();
}

QLineEdit *DesignDialog::addLine(QFormLayout *form, const QString &label, const QString &text)
{
    auto *line = new QLineEdit(text, this);
    form->addRow(label, line);
    return line;
}

void DesignDialog::addFacts(QFormLayout *form, const IDesign &design)
{
    const QString none = tr("none yet");
    const auto orNone = [&none](const QString &path) {
        return path.isEmpty() ? none : QDir::toNativeSeparators(path);
    };
    form->addRow(tr("Version:"), makeFact(design.version(u"."_s), this));
    form->addRow(tr("Type:"), makeFact(design.designType(), this));
    form->addRow(tr("Component file:"), makeFact(orNone(design.componentFileName()), this));
}

// A read-only design takes no change but that of the flag.
void DesignDialog::check()
{
    const bool writable = !readOnly->isChecked();
    const QList<QLineEdit *> lines {name, vendor, library, author};
    for (QLineEdit *line : lines)
        line->setReadOnly(!writable);
    description->setReadOnly(!writable);

    const Status checked = row.isThere() ? checkName(*row.design(), name->text()) : Status();
    problem->setText(checked.text());
    ok->setEnabled(row.isThere() && checked.isOk());
}

void DesignDialog::accept()
{
    QDialog::accept();
    if (!row.isThere())
        return;
    HostCall attempt(parentWidget(), tr("Not Changed"));
    apply(*row.design(), attempt);
}

void DesignDialog::apply(IDesign &design, HostCall &attempt)
{
    const auto take = [&](const QString &field, const QString &text, const auto &set) {
        const QString oldId = journaling::idOf(design);
        if (attempt.takeAndLog(set(), Logger::Warning))
            journaling::identity(design, oldId, field, text);
    };
    if (design.isReadOnly() && !readOnly->isChecked())
        take(u"read_only"_s, u"false"_s, [&] { return design.trySetReadOnly(false); });
    if (name->text() != design.name())
        take(u"name"_s, name->text(), [&] { return design.trySetName(name->text()); });
    if (vendor->text() != design.vendor())
        take(u"vendor"_s, vendor->text(), [&] { return design.trySetVendor(vendor->text()); });
    if (library->text() != design.library())
        take(u"library"_s, library->text(), [&] { return design.trySetLibrary(library->text()); });
    if (author->text() != design.author())
        take(u"author"_s, author->text(), [&] { return design.trySetAuthor(author->text()); });
    const QString text = description->toPlainText();
    if (text != design.description())
        take(u"description"_s, text, [&] { return design.trySetDescription(text); });
    if (!design.isReadOnly() && readOnly->isChecked())
        take(u"read_only"_s, u"true"_s, [&] { return design.trySetReadOnly(true); });
}
