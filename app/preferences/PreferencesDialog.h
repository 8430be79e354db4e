#pragma once

#include <QDialog>
#include <QList>

class PreferencesPage;
class QTabWidget;

// The preferences, page by page. Nothing is set before the user agrees.
class PreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PreferencesDialog(QWidget *parent = nullptr);

    // The titles of the pages, and bringing one to the front; an unknown one changes nothing.
    static QStringList pageTitles();
    void showPage(const QString &title);

    void accept() override;

Q_SIGNALS:
    // The preferences are set.
    void applied();

private:
    void add(PreferencesPage *page);
    void apply();

    QTabWidget *tabs;
    QList<PreferencesPage *> pages;
};
