#include "app/messages/ReportDialog.h"

#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

// In characters and lines.
constexpr int usualWidth = 90;
constexpr int usualHeight = 18;

} // namespace

ReportDialog::ReportDialog(const QString &title, const QString &report, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(u"reportDialog"_s);
    setWindowTitle(title);
    auto *text = new QPlainTextEdit(report, this);
    text->setAccessibleName(title);
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(buttons);
    resize(fontMetrics().averageCharWidth() * usualWidth,
           fontMetrics().lineSpacing() * usualHeight);
}
