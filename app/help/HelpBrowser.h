#pragma once

#include <QWidget>

class ManualBrowser;
class QLabel;
class QLineEdit;

// The commands' manual with buttons to go about in it and a line to search all of its pages.
class HelpBrowser : public QWidget
{
    Q_OBJECT

public:
    explicit HelpBrowser(QWidget *parent = nullptr);

    // Shows the page of a command; an unknown one shows the contents.
    void showCommand(const QString &word);

    ManualBrowser *browser() const { return manual; }

private:
    QWidget *createBar();
    void search(bool backwards);

    ManualBrowser *manual;
    QLineEdit *searchField;
    QLabel *searchNote;
};
