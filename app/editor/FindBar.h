#pragma once

#include <QWidget>

class IncrementalSearch;
class QCheckBox;
class QLabel;
class QLineEdit;
class TextEdit;

// The strip below a text that searches it and replaces what it finds. It searches on while the
// user types, says which match of how many is selected, and marks those that are in sight. Return
// goes to the next match, Shift+Return to the one before, Escape back to the text.
class FindBar : public QWidget
{
    Q_OBJECT

public:
    explicit FindBar(TextEdit *edit, QWidget *parent = nullptr);

    // Shows the strip, with what is selected in the text to search for; if wanted, with a second
    // line for replacing.
    void open(bool replacing);

    // Without anything to search for these show the strip.
    void findNext();
    void findPrevious();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QWidget *searchLine();
    QWidget *optionLine();
    QWidget *replaceLine();
    QCheckBox *option(const QString &text, const char *name);
    void leave();
    void search();
    void find(bool forward);
    void replace();
    void replaceAll();

    TextEdit *edit;
    QLineEdit *pattern;
    QLineEdit *replacement;
    QCheckBox *matchCase;
    QCheckBox *wholeWords;
    QCheckBox *regularExpression;
    QLabel *status;
    QWidget *replacing;
    IncrementalSearch *matches;
};
