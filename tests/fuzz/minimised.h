#pragma once

#include <QByteArray>
#include <QString>

// Leaves out of an input that the program finds fault with, in a process of its own, whatever it
// can without the fault going away; first lines, then bytes. Writes what is left to the file and
// returns its path.
QString minimised(const QByteArray &input, const QString &file);
