#pragma once

#include "app/editor/Indentation.h"

#include <QTextCursor>

// What is done to all lines of a selection at once, as one step of undoing. A selection that ends
// at the start of a line does not mean that line.
namespace lineediting {

// One step to the right or to the left; empty lines stay.
void indent(QTextCursor *cursor, const Indentation &by);
void outdent(QTextCursor *cursor, const Indentation &by);

// What a tab at the cursor is: blanks up to the next step, or a tab.
QString toNextStep(const QTextCursor &cursor, const Indentation &by);

// Puts a sign of comments in front of the lines, or takes it away where all lines have it.
void toggleComment(QTextCursor *cursor, const QString &sign);

} // namespace lineediting
