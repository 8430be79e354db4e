#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// What a terminal shows: takes the bytes that a program writes to it, and understands as many
// control sequences as line editing needs.
class Screen
{
public:
    Screen(int rows, int columns);

    void feed(const QByteArray &bytes);
    // What is shown stays in its rows.
    void resize(int columns);

    // All rows, blanks at their ends and empty rows at the end left out.
    QString text() const;
    int row() const { return cursorRow; }
    int column() const { return cursorColumn; }

private:
    void take(char32_t c);
    void control(char32_t c);
    void put(char32_t c);
    void sequence(char32_t final);
    void move(char32_t final, int count);
    void edit(char32_t final, int count);
    void lineFeed();
    int parameter(int fallback) const;

    int columnCount;
    QList<QList<char32_t>> rows; // all there ever were; the last ones are in sight
    int height;
    int cursorRow = 0;
    int cursorColumn = 0;
    bool wrapsNext = false;
    bool inserts = false;
    QByteArray partial; // of a character
    QString escape; // of a sequence
};
