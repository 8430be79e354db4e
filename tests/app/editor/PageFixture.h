#pragma once

#include "app/editor/NoticeBar.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"
#include "tests/app/editor/files.h"
#include "tests/patience.h"

#include <QDir>
#include <QPushButton>
#include <QTemporaryDir>

#include <memory>

// A page with a file in a folder of its own, shown in a window.
class PageFixture
{
protected:
    // Makes a new folder and opens a file of that name in it; false, with the reason in the
    // error, when that cannot be.
    bool openPage(const QByteArray &bytes, const QString &name = QStringLiteral("top.v"))
    {
        page.reset();
        folder = std::make_unique<QTemporaryDir>();
        path = folder->filePath(name);
        if (!QDir().mkpath(QFileInfo(path).path()) || !files::write(path, bytes))
            return false;
        page.reset(TextPage::open(path).valueOr(nullptr, &error));
        if (!page)
            return false;
        edit = page->textEdit();
        page->resize(500, 300);
        page->show();
        return QTest::qWaitForWindowActive(page.get(), patient());
    }

    void press(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(edit, Qt::Key(key), modifiers);
    }
    void type(const QString &text) const { QTest::keyClicks(edit, text); }
    QString shown() const { return edit->toPlainText(); }

    // What the strip above the text says, and what it offers.
    QString notice() const { return page->findChild<NoticeBar *>()->text(); }
    QStringList choices() const
    {
        QStringList texts;
        for (const QPushButton *button : buttons())
            texts.append(button->text());
        return texts;
    }
    void choose(const QString &text) const
    {
        for (QPushButton *button : buttons()) {
            if (button->text() == text) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        QFAIL("there is no such choice");
    }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<TextPage> page;
    TextEdit *edit = nullptr;
    QString path;
    QString error;

private:
    QList<QPushButton *> buttons() const
    {
        QList<QPushButton *> all = page->findChild<NoticeBar *>()->findChildren<QPushButton *>();
        all.removeIf([](const QPushButton *button) { return !button->isVisible(); });
        return all;
    }
};
