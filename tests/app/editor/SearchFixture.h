#pragma once

#include "app/editor/EditorArea.h"
#include "app/editor/FindBar.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"
#include "tests/app/editor/files.h"
#include "tests/patience.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextBlock>

#include <memory>

// A page of the editor area in a window, whose strips are used with keys and mouse.
class SearchFixture
{
protected:
    // Makes the area and a page with a few lines of Verilog.
    bool openArea()
    {
        folder = std::make_unique<QTemporaryDir>();
        area = std::make_unique<EditorArea>();
        area->resize(800, 400);
        area->show();
        return QTest::qWaitForWindowActive(area.get(), patient())
            && openPage("wire clk;\nwire CLK_i;\n\nassign clk = CLK_i;\n");
    }

    // Adds another page, which has the focus then.
    bool openPage(const QByteArray &bytes)
    {
        const QString path = folder->filePath(QStringLiteral("f%1.v").arg(area->count()));
        QString error;
        page = files::write(path, bytes) ? TextPage::open(path).valueOr(nullptr, &error) : nullptr;
        if (!page)
            return false;
        area->addPage(page);
        edit = page->textEdit();
        bar = page->findChild<FindBar *>();
        return QApplication::focusWidget() == edit;
    }

    static void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
    }
    static void type(const QString &text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    template <typename Widget>
    Widget *child(const char *name) const
    {
        return bar->findChild<Widget *>(QString::fromLatin1(name));
    }
    void click(const char *button) const
    {
        QTest::mouseClick(child<QAbstractButton>(button), Qt::LeftButton);
    }
    QString status() const { return child<QLabel>("status")->text(); }

    // Line, column and text of the selection.
    QString selected() const
    {
        QTextCursor start = edit->textCursor();
        start.setPosition(start.selectionStart());
        return QStringLiteral("%1:%2 ")
                   .arg(start.blockNumber() + 1)
                   .arg(start.positionInBlock() + 1)
            + edit->textCursor().selectedText();
    }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<EditorArea> area;
    TextPage *page = nullptr;
    TextEdit *edit = nullptr;
    FindBar *bar = nullptr;
};
