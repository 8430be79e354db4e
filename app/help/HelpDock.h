#pragma once

#include <QDockWidget>

class HelpBrowser;
class QTextBrowser;

// The dock of the commands' manual. The manual is made when it is first seen.
class HelpDock : public QDockWidget
{
    Q_OBJECT

public:
    explicit HelpDock(QWidget *parent = nullptr);

    // Comes to the front with the page of a command; an unknown one shows the contents. The
    // keyboard stays where it is.
    void showCommand(const QString &word);

protected:
    void showEvent(QShowEvent *event) override;

Q_SIGNALS:
    // The manual shows for the first time.
    void opened(QTextBrowser *text);

private:
    HelpBrowser *help();

    HelpBrowser *made = nullptr;
};
