#pragma once

#include <QTextBrowser>

// Shows pages of the commands' manual, with links between them and a history.
class ManualBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    explicit ManualBrowser(QWidget *parent = nullptr);

    // Shows a page; an unknown name shows the contents.
    void showPage(const QString &name);
    QString shownPage() const;

    // Selects the next place of the text behind the selection, or the one in front of it, going on
    // with further pages. False when no page has it.
    bool findText(const QString &text, bool backwards);

    // Wide enough for a line of text.
    QSize sizeHint() const override;

protected:
    QVariant loadResource(int type, const QUrl &name) override;

private:
    void dressTables();
    bool findInPage(const QString &text, bool backwards);
};
