#pragma once

#include "app/editor/TextSearch.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QTimer;
class TextEdit;

// The strip below a text that searches it and replaces what it finds. It searches on while the
// user types, says which match of how many is selected, and marks those that are in sight. Return
// goes to the next match, Shift+Return to the one before, Escape back to the text.
class FindBar : public QWidget
{
    Q_OBJECT

public:
    explicit FindBar(TextEdit *edit, QWidget *parent = nullptr);

    // Shows the strip, with what is selected in the text to search for; on wish with a second
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
    void select(TextSearch::Match match);
    void replace();
    void replaceAll();
    void countSoon();
    void count();
    void markVisible();
    void say();
    TextSearch::Match selected() const;

    TextEdit *edit;
    QLineEdit *pattern;
    QLineEdit *words;
    QCheckBox *matchCase;
    QCheckBox *wholeWords;
    QCheckBox *regularExpression;
    QLabel *status;
    QWidget *replacing;
    QTimer *countTimer;
    TextSearch current;
    // As long as the search goes on while the user types, it begins here.
    int origin = 0;
    QList<TextSearch::Match> matches;
    QString lastNote;
};
