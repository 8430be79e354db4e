#include "LogModel.h"

#include "logline.h"

#include <Qtilities/Logger.h>
#include <Qtilities/LogLinks.h>

#include <QApplication>
#include <QColor>
#include <QFont>
#include <QIcon>
#include <QStyle>

namespace Qtilities::CoreGui {

namespace {

using namespace Qt::Literals::StringLiterals;
using Logging::Logger;

QVariant colourOf(int type, bool onDark)
{
    switch (type) {
    case Logger::Error:
    case Logger::Fatal:
        return onDark ? QColor(0xff, 0x99, 0x90) : QColor(0xb7, 0x1c, 0x1c);
    case Logger::Warning:
        return onDark ? QColor(0xff, 0xb7, 0x4d) : QColor(0x8a, 0x4b, 0x00);
    case Logger::Debug:
    case Logger::Trace:
        return onDark ? QColor(0xb0, 0xb0, 0xb0) : QColor(0x60, 0x60, 0x60);
    default:
        return {};
    }
}

// For those who do not tell the colours apart.
QVariant signOf(int type)
{
    const auto *const application = qobject_cast<QApplication *>(QCoreApplication::instance());
    if (!application)
        return {};
    switch (type) {
    case Logger::Error:
    case Logger::Fatal:
        return QApplication::style()->standardIcon(QStyle::SP_MessageBoxCritical);
    case Logger::Warning:
        return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
    default:
        return {};
    }
}

// Behind messages that the user should not miss.
QColor groundOf(bool onDark) { return {0xff, 0xc1, 0x07, onDark ? 0x28 : 0x40}; }

// The beginning of a long line, with blanks in place of tabs.
QString shownText(const QString &text)
{
    constexpr qsizetype tabColumns = 8;
    QString shown = text.left(LogModel::shownCharacters);
    for (qsizetype tab = shown.indexOf(u'\t'); tab >= 0; tab = shown.indexOf(u'\t', tab))
        shown.replace(tab, 1, QString(tabColumns - tab % tabColumns, u' '));
    return text.size() > LogModel::shownCharacters ? shown + u'\u2026' : shown;
}

QString cellText(const LogLine &line, int column)
{
    if (column == LogModel::TextColumn)
        return shownText(line.text);
    if (!line.first)
        return {};
    if (column == LogModel::TimeColumn)
        return line.time.toString(u"HH:mm:ss.zzz"_s);
    return LogModel::levelText(line.type);
}

} // namespace

QString LogModel::levelText(int type)
{
    switch (type) {
    case Logger::Info:
        return tr("Info");
    case Logger::Warning:
        return tr("Warning");
    case Logger::Error:
        return tr("Error");
    case Logger::Fatal:
        return tr("Fatal");
    case Logger::Debug:
        return tr("Debug");
    case Logger::Trace:
        return tr("Trace");
    default:
        return Logger::messageTypeName(Logger::MessageType(type));
    }
}

LogModel::LogModel(QObject *parent) : QAbstractTableModel(parent) { }

LogModel::~LogModel() = default;

void LogModel::append(int type, bool priority, const QString &text)
{
    const LogLinks *links = LogLinks::instance();
    LogLine line {QDateTime::currentDateTime(),
                  type,
                  priority,
                  true,
                  QString(),
                  links ? links->contextOfMessage() : QString()};
    QStringView rest = QStringView(text).left(maximumCharacters / 2);
    do {
        line.text = Logging::takeLine(&rest).toString();
        appendLine(line);
        line.first = false;
    } while (!rest.isEmpty());
    if (text.size() > maximumCharacters / 2) {
        line.text = tr("(%L1 more characters)").arg(text.size() - maximumCharacters / 2);
        appendLine(line);
    }
}

void LogModel::appendLine(LogLine line)
{
    characters += line.text.size();
    pending.push_back(std::move(line));
    while (qsizetype(lines.size()) - qsizetype(doomed) + qsizetype(pending.size()) > maximumLines
           || characters > maximumCharacters) {
        if (doomed < lines.size()) {
            characters -= lines[doomed++].text.size();
        } else {
            characters -= pending.front().text.size();
            pending.pop_front();
            ++missed;
        }
    }
}

void LogModel::publish()
{
    dropDoomed();
    publishPending();
}

void LogModel::dropDoomed()
{
    const qint64 firstKept = dropped + qint64(doomed);
    const auto keptRows = std::lower_bound(rowNumbers.begin(), rowNumbers.end(), firstKept);
    const int rows = int(keptRows - rowNumbers.begin());
    if (rows > 0)
        beginRemoveRows({}, 0, rows - 1);
    rowNumbers.erase(rowNumbers.begin(), keptRows);
    lines.erase(lines.begin(), lines.begin() + qsizetype(doomed));
    dropped = firstKept + missed;
    doomed = 0;
    missed = 0;
    if (rows > 0)
        endRemoveRows();
}

void LogModel::publishPending()
{
    const auto rows = std::count_if(pending.cbegin(), pending.cend(),
                                    [this](const LogLine &line) { return isShown(line); });
    if (rows > 0)
        beginInsertRows({}, rowCount(), rowCount() + int(rows) - 1);
    for (LogLine &line : pending) {
        if (isShown(line))
            rowNumbers.push_back(dropped + qint64(lines.size()));
        lines.push_back(std::move(line));
    }
    pending.clear();
    if (rows > 0)
        endInsertRows();
}

void LogModel::clear()
{
    beginResetModel();
    lines.clear();
    rowNumbers.clear();
    pending.clear();
    doomed = 0;
    dropped = missed = 0;
    characters = 0;
    endResetModel();
}

void LogModel::setShownTypes(int mask)
{
    publish();
    beginResetModel();
    shownMask = mask;
    rowNumbers.clear();
    for (size_t index = 0; index < lines.size(); ++index) {
        if (isShown(lines[index]))
            rowNumbers.push_back(dropped + qint64(index));
    }
    endResetModel();
}

int LogModel::find(const QString &text, int fromRow, bool backwards) const
{
    const int rows = rowCount();
    const int step = backwards ? rows - 1 : 1;
    int row = rows > 0 ? (fromRow % rows + rows) % rows : 0;
    for (int tried = 0; tried < rows; ++tried, row = (row + step) % rows) {
        if (line(row).text.contains(text, Qt::CaseInsensitive))
            return row;
    }
    return -1;
}

int LogModel::count(const QString &text) const { return countUpTo(rowCount() - 1, text); }

int LogModel::countUpTo(int last, const QString &text) const
{
    int found = 0;
    for (int row = 0; row <= last; ++row)
        found += line(row).text.contains(text, Qt::CaseInsensitive);
    return found;
}

int LogModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(rowNumbers.size());
}

int LogModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

Qt::ItemFlags LogModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    return index.column() == TextColumn ? usual | Qt::ItemIsEditable : usual;
}

void LogModel::setOnDark(bool onDark)
{
    if (dark == onDark)
        return;
    dark = onDark;
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

QVariant LogModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const LogLine &shown = line(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return cellText(shown, index.column());
    case Qt::EditRole:
        return index.column() == TextColumn ? QVariant(shown.text) : QVariant();
    case Qt::DecorationRole:
        return index.column() == LevelColumn && shown.first ? signOf(shown.type) : QVariant();
    case Qt::ForegroundRole:
        return colourOf(shown.type, dark);
    case Qt::BackgroundRole:
        return shown.priority ? QVariant(groundOf(dark)) : QVariant();
    case Qt::FontRole: {
        QFont bold;
        bold.setBold(true);
        return shown.priority ? QVariant(bold) : QVariant();
    }
    default:
        return {};
    }
}

} // namespace Qtilities::CoreGui
