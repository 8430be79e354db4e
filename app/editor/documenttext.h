#pragma once

#include <QString>

class QTextDocument;
class TextEdit;

// The lines of a document as one text, and making them another one.
namespace documenttext {

// With a line feed between lines, and every character as it is: QTextDocument::toPlainText() makes
// spaces of those that do not break.
QString lines(const QTextDocument &document);

// Makes the text another one, as one step that can be undone. Only the part that differs is
// replaced, so that the cursor stays with its text; within that part it stays in its line.
void replace(TextEdit *edit, const QString &text);

} // namespace documenttext
