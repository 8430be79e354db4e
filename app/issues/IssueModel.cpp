#include "app/issues/IssueModel.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QStyle>

using namespace Qt::Literals::StringLiterals;

namespace {

// The row of a source has no parent; that of an issue keeps which source is its own.
constexpr quintptr ofNoSource = 0;

QString wordFor(TextPlace::Severity severity)
{
    switch (severity) {
    case TextPlace::Error:
        return IssueModel::tr("Error");
    case TextPlace::Warning:
        return IssueModel::tr("Warning");
    default:
        return IssueModel::tr("Note");
    }
}

QIcon iconFor(TextPlace::Severity severity)
{
    const QStyle *style = QApplication::style();
    switch (severity) {
    case TextPlace::Error:
        return style->standardIcon(QStyle::SP_MessageBoxCritical);
    case TextPlace::Warning:
        return style->standardIcon(QStyle::SP_MessageBoxWarning);
    default:
        return style->standardIcon(QStyle::SP_MessageBoxInformation);
    }
}

} // namespace

IssueModel::IssueModel(const IssueList *theList, QObject *parent)
    : QAbstractItemModel(parent),
      list(theList)
{
}

void IssueModel::follow()
{
    beginResetModel();
    shown = list->sources();
    endResetModel();
}

const Issue *IssueModel::issue(const QModelIndex &index) const
{
    if (!index.isValid() || index.internalId() == ofNoSource)
        return nullptr;
    const auto source = qsizetype(index.internalId()) - 1;
    return &shown[source].issues[index.row()];
}

QModelIndex IssueModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, parent.isValid() ? quintptr(parent.row() + 1) : ofNoSource);
}

QModelIndex IssueModel::parent(const QModelIndex &child) const
{
    if (!child.isValid() || child.internalId() == ofNoSource)
        return {};
    return createIndex(int(child.internalId()) - 1, 0, ofNoSource);
}

int IssueModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return int(shown.size());
    const bool isSource = parent.internalId() == ofNoSource && parent.column() == 0;
    return isSource ? int(shown[parent.row()].issues.size()) : 0;
}

int IssueModel::columnCount(const QModelIndex &) const { return ColumnCount; }

QVariant IssueModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (index.internalId() == ofNoSource)
        return ofSource(index.row(), index.column(), role);
    return ofIssue(*issue(index), index.column(), role);
}

QVariant IssueModel::ofSource(int row, int column, int role) const
{
    if (column != MessageColumn || role != Qt::DisplayRole)
        return {};
    const IssueList::Source &source = shown[row];
    const QString title =
        tr("%1 (%L2)").arg(source.title).arg(source.issues.size() + source.leftOut);
    return source.leftOut == 0 ? title : tr("%1, the first are listed").arg(title);
}

QVariant IssueModel::ofIssue(const Issue &issue, int column, int role)
{
    if (role == Qt::ToolTipRole)
        return u"<pre>"_s + issue.details.toHtmlEscaped() + u"</pre>"_s;
    if (column == MessageColumn) {
        if (role == Qt::DecorationRole)
            return iconFor(issue.severity);
        if (role == Qt::AccessibleTextRole)
            return tr("%1: %2").arg(wordFor(issue.severity), issue.message);
        return role == Qt::DisplayRole ? QVariant(issue.message) : QVariant();
    }
    if (role != Qt::DisplayRole)
        return {};
    if (column == FileColumn)
        return QFileInfo(issue.file).fileName();
    return issue.line > 0 ? QVariant(issue.line) : QVariant();
}

QVariant IssueModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const QString titles[] = {tr("Issue"), tr("File"), tr("Line")};
    return titles[section];
}
