#pragma once

#include "app/find/FileSearch.h"

#include <QElapsedTimer>
#include <QWidget>

class EditorArea;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// Finds a text in the files of the active design or of all that are open, and puts another one in
// its place: in what is checked, as the list shows it beforehand. A click on a line or Return goes
// there.
class FindView : public QWidget
{
    Q_OBJECT

public:
    // Pages of the area are searched as they are, saved or not.
    explicit FindView(EditorArea *area, QWidget *parent = nullptr);

    // Puts the keyboard into the field of the text, with what is selected in the page in front.
    void begin();

private:
    void layOut();
    QWidget *createFields();
    void search();
    void take(const QList<textmatching::Match> &matches);
    void end();
    void showPreviews();
    void replaceChecked();
    void go(const QTreeWidgetItem *row);
    QStringList filesToSearch() const;
    QHash<QString, QString> textsOfPages() const;
    QList<QList<textmatching::Match>> checked() const;

    EditorArea *area;
    FileSearch *searching;
    QLineEdit *field;
    QCheckBox *caseBox;
    QComboBox *scope;
    QLineEdit *replacement;
    QPushButton *replaceButton;
    QLabel *note;
    QTreeWidget *results;
    QList<textmatching::Match> all;
    qsizetype filesFound = 0;
    qsizetype filesSearched = 0;
};
