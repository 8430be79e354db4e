#include "app/find/FindView.h"

#include "app/editor/EditorArea.h"
#include "app/editor/EditorPage.h"
#include "app/editor/placeopening.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"
#include "app/find/replacing.h"
#include "app/messages/messages.h"

#include <MorvalenCore/DesignFile.h>
#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/IDesign.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSet>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignFile;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;
using textmatching::Match;

namespace {

enum Scope { ActiveDesign, AllDesigns };
enum Column { TextColumn, AfterColumn };

// Where a row's match is in the list; rows of files have none.
constexpr int matchRole = Qt::UserRole;

QList<IDesign *> designsOf(Scope scope)
{
    const DesignManager *manager = DesignManager::instance();
    if (scope == ActiveDesign)
        return manager->activeDesigns().mid(0, 1);
    QList<IDesign *> designs;
    for (const QString &id : manager->openDesignIds())
        designs.append(manager->design(id));
    designs.removeAll(nullptr);
    return designs;
}

} // namespace

FindView::FindView(EditorArea *theArea, QWidget *parent)
    : QWidget(parent),
      area(theArea),
      searching(new FileSearch(this)),
      field(new QLineEdit(this)),
      caseBox(new QCheckBox(tr("Match &Case"), this)),
      scope(new QComboBox(this)),
      replacement(new QLineEdit(this)),
      replaceButton(new QPushButton(tr("&Replace Checked"), this)),
      note(new QLabel(this)),
      results(new QTreeWidget(this))
{
    layOut();
    connect(field, &QLineEdit::returnPressed, this, &FindView::search);
    connect(replacement, &QLineEdit::textChanged, this, &FindView::showPreviews);
    connect(replaceButton, &QPushButton::clicked, this, &FindView::replaceChecked);
    connect(results, &QTreeWidget::itemActivated, this, &FindView::go);
    connect(results, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem *row, int column) {
        // The box of a row is not its text.
        const QRect cell = results->visualItemRect(row);
        const QPoint mouse = results->viewport()->mapFromGlobal(QCursor::pos());
        if (column != TextColumn || mouse.x() > cell.left() + cell.height())
            go(row);
    });
    connect(searching, &FileSearch::found, this, &FindView::take);
    connect(searching, &FileSearch::ended, this, &FindView::end);
}

void FindView::layOut()
{
    results->setObjectName(u"findResults"_s);
    results->setAccessibleName(tr("Found"));
    results->setColumnCount(2);
    results->setHeaderLabels({tr("Found"), tr("After Replacing")});
    results->setUniformRowHeights(true);
    results->hideColumn(AfterColumn);
    results->header()->setStretchLastSection(true);
    results->setColumnWidth(TextColumn, fontMetrics().averageCharWidth() * 90);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 0);
    layout->addWidget(createFields());
    layout->addWidget(results);
    setFocusProxy(field);
}

QWidget *FindView::createFields()
{
    auto *row = new QWidget(this);
    field->setObjectName(u"findText"_s);
    field->setAccessibleName(tr("Text to Find"));
    field->setPlaceholderText(tr("Find in files; Return begins"));
    caseBox->setObjectName(u"findCase"_s);
    caseBox->setChecked(true);
    scope->setObjectName(u"findScope"_s);
    scope->setAccessibleName(tr("Files to Search"));
    scope->addItems({tr("Active Design"), tr("All Open Designs")});
    replacement->setObjectName(u"findReplacement"_s);
    replacement->setAccessibleName(tr("Replacement"));
    replacement->setPlaceholderText(tr("Replace with"));
    replaceButton->setObjectName(u"findReplace"_s);
    replaceButton->setEnabled(false);
    note->setObjectName(u"findNote"_s);
    note->setTextFormat(Qt::PlainText);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(field, 2);
    layout->addWidget(caseBox);
    layout->addWidget(scope);
    layout->addWidget(replacement, 1);
    layout->addWidget(replaceButton);
    layout->addWidget(note);
    return row;
}

void FindView::begin()
{
    const auto *page = qobject_cast<TextPage *>(area->currentPage());
    const QString selected = page ? page->textEdit()->textCursor().selectedText() : QString();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
        field->setText(selected);
    field->setFocus();
    field->selectAll();
}

// The component file of an open design is the design's own business.
QStringList FindView::filesToSearch() const
{
    QSet<QString> seen;
    QStringList files;
    for (const IDesign *design : designsOf(Scope(scope->currentIndex()))) {
        for (const DesignFile *file : design->filesUnderNode(QString(), true)) {
            const QString path = file->actualPath();
            if (!seen.contains(path)) {
                seen.insert(path);
                files.append(path);
            }
        }
    }
    return files;
}

QHash<QString, QString> FindView::textsOfPages() const
{
    QHash<QString, QString> texts;
    for (EditorPage *candidate : area->modifiedPages()) {
        if (const auto *page = qobject_cast<TextPage *>(candidate))
            texts.insert(page->filePath(), page->textEdit()->toPlainText());
    }
    return texts;
}

void FindView::search()
{
    results->clear();
    results->hideColumn(AfterColumn);
    all.clear();
    filesFound = 0;
    replaceButton->setEnabled(false);
    if (field->text().isEmpty())
        return searching->cancel();
    const QStringList files = filesToSearch();
    filesSearched = files.size();
    note->setText(tr("Searching..."));
    searching->start(files, textsOfPages(), {field->text(), caseBox->isChecked()});
}

void FindView::take(const QList<Match> &matches)
{
    QList<QTreeWidgetItem *> rows;
    QTreeWidgetItem *file = nullptr;
    QString path;
    for (const Match &match : matches) {
        if (!file || match.path != path) {
            path = match.path;
            file = new QTreeWidgetItem({QDir::toNativeSeparators(path)});
            file->setFlags(file->flags() | Qt::ItemIsUserCheckable | Qt::ItemIsAutoTristate);
            file->setCheckState(TextColumn, Qt::Checked);
            rows.append(file);
        }
        auto *row =
            new QTreeWidgetItem(file, {u"%1: %2"_s.arg(match.line).arg(match.text.simplified())});
        row->setFlags(row->flags() | Qt::ItemIsUserCheckable);
        row->setCheckState(TextColumn, Qt::Checked);
        row->setData(TextColumn, matchRole, all.size());
        all.append(match);
    }
    filesFound += rows.size();
    results->addTopLevelItems(rows);
    for (QTreeWidgetItem *row : std::as_const(rows))
        row->setExpanded(true);
}

void FindView::end()
{
    const bool isCut = all.size() >= FileSearch::mostMatches;
    const QString found =
        tr("%L1 in %L2 of %L3 files").arg(all.size()).arg(filesFound).arg(filesSearched);
    note->setText(isCut ? tr("The first %1").arg(found) : found);
    showPreviews();
}

// What a line will be is seen before it is.
void FindView::showPreviews()
{
    const bool isReplacing = !all.isEmpty() && !searching->isRunning();
    replaceButton->setEnabled(isReplacing);
    results->setColumnHidden(AfterColumn, replacement->text().isEmpty());
    if (replacement->text().isEmpty())
        return;
    for (int file = 0; file < results->topLevelItemCount(); ++file) {
        QTreeWidgetItem *above = results->topLevelItem(file);
        for (int row = 0; row < above->childCount(); ++row) {
            QTreeWidgetItem *shown = above->child(row);
            const Match &match = all[shown->data(TextColumn, matchRole).toInt()];
            shown->setText(AfterColumn,
                           replacing::preview(match, replacement->text()).simplified());
        }
    }
}

QList<QList<Match>> FindView::checked() const
{
    QList<QList<Match>> files;
    for (int file = 0; file < results->topLevelItemCount(); ++file) {
        const QTreeWidgetItem *above = results->topLevelItem(file);
        QList<Match> matches;
        for (int row = 0; row < above->childCount(); ++row) {
            if (above->child(row)->checkState(TextColumn) == Qt::Checked)
                matches.append(all[above->child(row)->data(TextColumn, matchRole).toInt()]);
        }
        if (!matches.isEmpty())
            files.append(matches);
    }
    return files;
}

void FindView::replaceChecked()
{
    const QList<QList<Match>> files = checked();
    QStringList problems;
    qsizetype replaced = 0;
    for (const QList<Match> &matches : files) {
        const Status status = replacing::replace(matches, replacement->text());
        if (status.isOk())
            replaced += matches.size();
        else
            problems.append(status.text());
    }
    results->clear();
    all.clear();
    replaceButton->setEnabled(false);
    note->setText(tr("%Ln replaced", nullptr, int(replaced)));
    if (!problems.isEmpty())
        messages::warn(window(), tr("Not Replaced"), problems);
}

void FindView::go(const QTreeWidgetItem *row)
{
    if (!row || !row->data(TextColumn, matchRole).isValid())
        return;
    const Match &match = all[row->data(TextColumn, matchRole).toInt()];
    const Status shown = placeopening::show(match.path, match.line, match.column);
    if (!shown.isOk())
        messages::tell(shown.text());
}
