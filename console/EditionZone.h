#pragma once

#include <QTextCursor>

QT_BEGIN_NAMESPACE
class QTextEdit;
QT_END_NAMESPACE

// The part of a console's text that can be edited: all that is behind the prompt on screen. What is
// typed there is the current command; its paragraphs are joined by line feeds.
//
// A prompt that is changed while one is on screen does not move the zone. Output that was written
// behind the prompt, as between the lines of a loaded script, is in the zone but not in the
// command.
class EditionZone
{
public:
    explicit EditionZone(QTextEdit *widget) : view(widget) { }

    // Nothing is written yet.
    void reset();

    // The prompt ends here.
    void beginAt(const QTextCursor &promptEnd);

    // Output behind the prompt ends here.
    void outputEndsAt(const QTextCursor &end);
    bool endsWithOutput() const { return !outputEnd.isNull() && !outputEnd.atBlockStart(); }

    bool contains(const QTextCursor &cursor) const;
    bool contains(int position) const;
    bool containsCursor() const;
    bool containsSelection() const;

    // The position behind the prompt.
    int begin() const;

    // In the zone, all that has been typed; elsewhere the cursor's line without its prompt.
    QTextCursor commandSelection() const;
    QString command() const;

    // Deletes the word before the cursor, but nothing of the prompt.
    void deleteStartOfWord();

    // Goes to the start of the cursor's paragraph, behind the prompt.
    void moveHome(QTextCursor::MoveMode mode);

    int promptParagraph = 0; // number of the block that holds the prompt

private:
    QTextEdit *const view;
    int promptColumn = 0; // where the prompt ends
    QTextCursor outputEnd; // null when nothing was written behind the prompt
};
