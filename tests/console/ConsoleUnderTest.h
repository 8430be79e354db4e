#pragma once

#include "console/QConsole.h"
#include "tests/patience.h"

#include <QTextBlock>
#include <QtTest>

#include <functional>

// A console whose language is given by functions, and whose state can be looked at.
class ConsoleUnderTest : public QConsole
{
public:
    explicit ConsoleUnderTest(const QString &welcome = QStringLiteral("Welcome"))
        : QConsole(nullptr, welcome)
    {
        resize(700, 300);
    }

    using QConsole::cmdColor;
    using QConsole::completionColor;
    using QConsole::errColor;
    using QConsole::history;
    using QConsole::historyIndex;
    using QConsole::oldPosition;
    using QConsole::outColor;
    using QConsole::prompt;
    using QConsole::promptLength;
    using QConsole::promptParagraph;
    using QConsole::recordedScript;
    using QConsole::writeOutput;

    bool isCommandComplete(const QString &command) override
    {
        return complete ? complete(command) : QConsole::isCommandComplete(command);
    }
    QString interpretCommand(const QString &command, int *res) override
    {
        const QString text = run ? run(command, res) : QString();
        QConsole::interpretCommand(command, res);
        return text;
    }
    QStringList suggestCommand(const QString &cmd, QString &prefix) override
    {
        return suggest ? suggest(cmd, prefix) : QConsole::suggestCommand(cmd, prefix);
    }

    // Shows the console with a prompt, and gives it the focus.
    void start()
    {
        setPrompt(QStringLiteral("> "), true);
        show();
        activateWindow();
        setFocus();
        QVERIFY(QTest::qWaitForWindowActive(this, patient()));
    }

    // The text with "^" where the selection is anchored and "|" where the cursor stands.
    QString picture() const
    {
        QString text = toPlainText();
        const QTextCursor cursor = textCursor();
        text.insert(cursor.position(), QLatin1Char('|'));
        if (cursor.hasSelection()) {
            const bool behind = cursor.anchor() > cursor.position();
            text.insert(cursor.anchor() + (behind ? 1 : 0), QLatin1Char('^'));
        }
        return text;
    }

    void select(int anchor, int position)
    {
        QTextCursor cursor = textCursor();
        cursor.setPosition(anchor);
        cursor.setPosition(position, QTextCursor::KeepAnchor);
        setTextCursor(cursor);
    }
    void moveTo(int position) { select(position, position); }

    std::function<bool(const QString &)> complete;
    std::function<QString(const QString &, int *)> run;
    std::function<QStringList(const QString &, QString &)> suggest;
};

// The runs of equal colour, one after the other, paragraphs ended by "/": "black:> a/blue:5/".
inline QString coloursOf(const QTextEdit &view)
{
    QString runs;
    for (QTextBlock block = view.document()->begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat format = it.fragment().charFormat();
            const QString colour = format.hasProperty(QTextFormat::ForegroundBrush)
                ? format.foreground().color().name()
                : QStringLiteral("none");
            runs += colour + QLatin1Char(':') + it.fragment().text();
        }
        runs += QLatin1Char('/');
    }
    return runs;
}
