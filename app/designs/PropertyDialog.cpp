#include "app/designs/PropertyDialog.h"

#include <Qtilities/categorytext.h>
#include <Qtilities/QtilitiesProperty.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::QtilitiesProperty;

namespace {

// In characters.
constexpr int usualWidth = 60;

const QStringList typeWords {u"string"_s, u"int"_s, u"uint"_s, u"double"_s, u"bool"_s};

} // namespace

PropertyDialog::PropertyDialog(Kind kind, QWidget *parent)
    : QDialog(parent),
      nameLine(new QLineEdit(this)),
      typeBox(new QComboBox(this)),
      valueLine(new QLineEdit(this)),
      problem(new QLabel(this))
{
    setObjectName(u"propertyDialog"_s);
    setWindowTitle(kind == DesignProperty ? tr("Property") : tr("Shared Property"));
    typeBox->addItems(typeWords);
    problem->setObjectName(u"problem"_s);
    problem->setTextFormat(Qt::PlainText);
    auto *form = new QFormLayout(this);
    form->addRow(tr("&Name:"), nameLine);
    form->addRow(tr("&Type:"), typeBox);
    form->addRow(tr("&Value:"), valueLine);
    if (kind == DesignProperty) {
        categoryLine = new QLineEdit(this);
        categoryLine->setToolTip(tr("Its levels separated by \"::\""));
        form->addRow(tr("&Category:"), categoryLine);
        readOnlyBox = new QCheckBox(tr("&Read-only"), this);
        form->addRow(QString(), readOnlyBox);
    }
    form->addRow(problem);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok = buttons->button(QDialogButtonBox::Ok);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(nameLine, &QLineEdit::textChanged, this, &PropertyDialog::check);
    connect(valueLine, &QLineEdit::textChanged, this, &PropertyDialog::check);
    connect(typeBox, &QComboBox::currentTextChanged, this, &PropertyDialog::check);
    resize(fontMetrics().averageCharWidth() * usualWidth, sizeHint().height());
    check();
}

void PropertyDialog::setProperty(const QString &name, const QVariant &value)
{
    nameLine->setText(name);
    nameLine->setReadOnly(true);
    typeBox->setCurrentText(QtilitiesProperty::typeName(value));
    valueLine->setText(value.toString());
    valueLine->setFocus();
    valueLine->selectAll();
}

QString PropertyDialog::name() const { return nameLine->text(); }

QVariant PropertyDialog::value() const
{
    return QtilitiesProperty::constructVariant(typeBox->currentText(), valueLine->text());
}

QtilitiesCategory PropertyDialog::category() const
{
    return categoryLine ? Qtilities::Core::categoryFrom(categoryLine->text()) : QtilitiesCategory();
}

bool PropertyDialog::isReadOnly() const { return readOnlyBox && readOnlyBox->isChecked(); }

void PropertyDialog::check()
{
    const bool isValue = value().isValid();
    problem->setText(isValue || valueLine->text().isEmpty()
                         ? QString()
                         : tr("\"%1\" is no value of the type %2")
                               .arg(valueLine->text(), typeBox->currentText()));
    ok->setEnabled(isValue && !name().isEmpty());
}
