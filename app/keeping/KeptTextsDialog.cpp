#include "app/keeping/KeptTextsDialog.h"

#include "app/editor/DifferenceDialog.h"
#include "app/editor/TextFile.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize usualSize(720, 320);

// What has become of the file since the text was made of it.
QString stateOf(const KeptText &text)
{
    TextFile file(text.path);
    file.know(text.base);
    switch (file.look(TextFile::Trust::Nothing)) {
    case TextFile::Disk::Same:
        return KeptTextsDialog::tr("as it was");
    case TextFile::Disk::Changed:
        return KeptTextsDialog::tr("changed since");
    default:
        return KeptTextsDialog::tr("gone");
    }
}

} // namespace

KeptTextsDialog::KeptTextsDialog(const QList<KeptText> &texts, QWidget *parent)
    : QDialog(parent),
      offered(texts),
      list(new QTreeWidget(this))
{
    setObjectName(u"keptTexts"_s);
    setWindowTitle(tr("Unsaved Texts"));
    resize(usualSize);
    auto *label = new QLabel(tr("The program ended before these texts were saved. What you restore "
                                "opens with its changes; nothing on disk is changed."),
                             this);
    label->setWordWrap(true);
    list->setObjectName(u"keptTextList"_s);
    list->setAccessibleName(tr("Unsaved texts"));
    list->setRootIsDecorated(false);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setHeaderLabels({tr("File"), tr("Kept"), tr("On Disk")});
    for (const KeptText &text : texts) {
        new QTreeWidgetItem(list,
                            {QDir::toNativeSeparators(text.path),
                             QLocale().toString(text.time, QLocale::ShortFormat), stateOf(text)});
    }
    for (int column = 0; column < list->columnCount(); ++column)
        list->resizeColumnToContents(column);
    list->selectAll();
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(list);
    addButtons();
    connect(list, &QTreeWidget::itemSelectionChanged, this, &KeptTextsDialog::updateButtons);
    updateButtons();
}

void KeptTextsDialog::addButtons()
{
    auto *buttons = new QDialogButtonBox(this);
    restoreButton = buttons->addButton(tr("&Restore"), QDialogButtonBox::AcceptRole);
    differenceButton = buttons->addButton(tr("Show &Difference"), QDialogButtonBox::ActionRole);
    discardButton = buttons->addButton(tr("Dis&card"), QDialogButtonBox::DestructiveRole);
    QPushButton *later = buttons->addButton(tr("Ask &Later"), QDialogButtonBox::RejectRole);
    restoreButton->setDefault(true);
    connect(restoreButton, &QPushButton::clicked, this,
            [this] { decide(&KeptTextsDialog::restored); });
    connect(differenceButton, &QPushButton::clicked, this, &KeptTextsDialog::showDifference);
    connect(discardButton, &QPushButton::clicked, this, &KeptTextsDialog::discard);
    connect(later, &QPushButton::clicked, this, &QDialog::reject);
    layout()->addWidget(buttons);
}

QList<int> KeptTextsDialog::selected() const
{
    QList<int> rows;
    for (int row = 0; row < list->topLevelItemCount(); ++row) {
        if (list->topLevelItem(row)->isSelected())
            rows.append(row);
    }
    return rows;
}

void KeptTextsDialog::decide(void (KeptTextsDialog::*answer)(const KeptText &))
{
    const QList<int> rows = selected();
    for (auto row = rows.crbegin(); row != rows.crend(); ++row) {
        delete list->takeTopLevelItem(*row);
        Q_EMIT(this->*answer)(offered.takeAt(*row));
    }
    if (offered.isEmpty())
        accept();
}

void KeptTextsDialog::discard()
{
    QMessageBox box(QMessageBox::Warning, tr("Discard Texts"),
                    tr("Discard the selected texts for good?"), QMessageBox::Cancel, this);
    const QPushButton *agreed = box.addButton(tr("&Discard"), QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    if (box.clickedButton() == agreed)
        decide(&KeptTextsDialog::discarded);
}

void KeptTextsDialog::showDifference()
{
    const QList<int> rows = selected();
    if (rows.size() != 1)
        return;
    const KeptText &text = offered.at(rows.first());
    const auto onDisk = TextFile(text.path).textOnDisk();
    if (!onDisk.isOk()) {
        QMessageBox::warning(this, tr("No Difference Shown"), onDisk.status().text());
        return;
    }
    auto *dialog = new DifferenceDialog(QFileInfo(text.path).fileName(), onDisk.value(),
                                        lineends::split(text.text).text, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void KeptTextsDialog::updateButtons()
{
    const qsizetype chosen = selected().size();
    restoreButton->setEnabled(chosen > 0);
    discardButton->setEnabled(chosen > 0);
    differenceButton->setEnabled(chosen == 1);
}
