#pragma once

#include <QString>

// A place of a file that a line of text names.
struct TextPlace
{
    // How bad is what the line says of it; None when it only names the place.
    enum Severity { Error, Warning, Note, None };

    // As the text has it. Of a procedure, when the file is empty.
    QString file;
    QString procedure;
    // Counted from 1; 0 where the text has none.
    int line = 0;
    int column = 0;

    // What of the text leads there.
    qsizetype start = 0;
    qsizetype length = 0;

    Severity severity = None;
    // What is said of the place; empty when it is only named.
    QString message;
};
