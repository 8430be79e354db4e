// Opens an editor whose Ctrl+Space completes the word before the cursor.

#include "examples/popup/CompletingEdit.h"

#include <QApplication>

using namespace Qt::Literals::StringLiterals;

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    CompletingEdit editor;
    editor.setWindowTitle(u"Completing words"_s);
    editor.setPlainText(u"module uart_tx, module uart_rx: type \"ua\" and press Ctrl+Space.\n"_s);
    editor.moveCursor(QTextCursor::End);
    editor.resize(600, 300);
    editor.show();
    return QApplication::exec();
}
