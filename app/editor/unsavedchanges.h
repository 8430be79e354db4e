#pragma once

#include <QStringList>

class QWidget;

// The question about changes that would be lost.
namespace unsavedchanges {

// The titles, one a line; the last line says how many there are more than a question has room for.
QString named(const QStringList &titles);

enum class Answer { Save, Discard, Cancel };

// Asks what becomes of the changes in the pages of these titles, of which there is at least one;
// one question names them all.
Answer ask(QWidget *parent, const QStringList &titles);

} // namespace unsavedchanges
