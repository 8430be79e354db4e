#pragma once

#include <Qtilities/LogLinks.h>

class QPlainTextEdit;
class QTextEdit;

// The places of files that logs and texts of the window name are links that lead into an editor.
// One in a process, while the window lives.
class WindowLinks : public Qtilities::CoreGui::LogLinks
{
public:
    WindowLinks();
    ~WindowLinks() override;

    // Makes the links of a text.
    void attachTo(QTextEdit *edit);
    void attachTo(QPlainTextEdit *edit);

    // The working folder of the design whose build speaks, else the folder of the process.
    QString contextOfMessage() const override;
    QList<Qtilities::CoreGui::LogLink> linksIn(const QString &line) const override;
    // What cannot be shown is told in the status bar.
    void follow(const QString &line, qsizetype start, const QString &folder) override;
};
