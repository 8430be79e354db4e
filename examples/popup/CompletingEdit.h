#pragma once

#include <QTextEdit>

// A text editor that completes words: Ctrl+Space offers those of its text that begin like the one
// before the cursor, and the chosen one takes that one's place.
class CompletingEdit : public QTextEdit
{
public:
    using QTextEdit::QTextEdit;

    // The words of the text that begin with a prefix and are longer, each once, in order.
    QStringList candidates(const QString &prefix) const;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void complete();
};
