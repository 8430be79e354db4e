#pragma once

#include <QString>

class QWidget;

// What Help tells of the window itself, in Markdown.
namespace helptexts {

// What is where, and what it is for.
QString guide();

// The keys of all actions of a window, as they are now.
QString keys(const QWidget *window);

// Shows a text beside the window, which goes on to be used.
void show(const QString &title, const QString &markdown, QWidget *window);

} // namespace helptexts
