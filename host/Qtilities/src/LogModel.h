#pragma once

#include <QAbstractTableModel>
#include <QDateTime>

#include <deque>

namespace Qtilities::CoreGui {

// One line of a message. The lines of a message behind its first show neither time nor level.
struct LogLine
{
    QDateTime time;
    int type = 0;
    bool priority = false;
    bool first = true;
    QString text;
    // What its links are to be read with.
    QString context = {};
};

// The last lines of a log: time, level and text. What is appended shows at the next publish(), so
// that a burst of messages costs its views one change. Lines beyond the limits are dropped, the
// oldest first, and counted.
class LogModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { TimeColumn, LevelColumn, TextColumn, ColumnCount };

    // How many lines, and how many characters in all of them, are kept. Of one message there are
    // at most half as many characters.
    static constexpr qsizetype maximumLines = 50'000;
    static constexpr qsizetype maximumCharacters = 20'000'000;

    // Characters of a line that views show; copying gives all of them.
    static constexpr int shownCharacters = 1000;

    // The word for a type of message, in the language of the window.
    static QString levelText(int type);

    explicit LogModel(QObject *parent = nullptr);
    ~LogModel() override;

    void append(int type, bool priority, const QString &text);
    void publish();
    void clear();
    qint64 droppedLines() const { return dropped; }

    // A mask of the message types that have rows.
    void setShownTypes(int mask);
    int shownTypes() const { return shownMask; }

    const LogLine &line(int row) const { return lines[size_t(rowNumbers[size_t(row)] - dropped)]; }

    // The row of the next line that holds the text in any case, from the given row on, wrapping
    // round; -1 when none does.
    int find(const QString &text, int fromRow, bool backwards) const;

    // How many of the lines that show hold the text in any case.
    int count(const QString &text) const;
    // The same up to a row.
    int countUpTo(int row, const QString &text) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    // The whole text of a line can be opened, to select parts of it; it never changes.
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    // Chooses colours that can be read on a dark ground.
    void setOnDark(bool onDark);

private:
    bool isShown(const LogLine &line) const { return line.type & shownMask; }
    void appendLine(LogLine line);
    void dropDoomed();
    void publishPending();

    // Each line has a number: how many lines came before it. The first one kept has the number of
    // those dropped.
    std::deque<LogLine> lines;
    std::deque<qint64> rowNumbers;
    qint64 dropped = 0;
    // What the next publish() does: drop so many lines, count so many that never showed, and show
    // these.
    size_t doomed = 0;
    qint64 missed = 0;
    std::deque<LogLine> pending;
    // In the lines that stay.
    qsizetype characters = 0;
    int shownMask = 126;
    bool dark = false;
};

} // namespace Qtilities::CoreGui
