#pragma once

#include "tests/app/designs/DesignTreeFixture.h"

#include <optional>

// Tests of the tree that shows the design "uart" with the files a.v, b.v and c.v and the property
// p.
class ItemsTest : public QObject
{
protected:
    void setUp()
    {
        fixture.emplace();
        QVERIFY(fixture->shown);
        uart = fixture->session.create(QStringLiteral("uart"), QStringLiteral("Hardware Design"),
                                       QStringLiteral("Hardware"));
        for (const QString &name :
             {QStringLiteral("a.v"), QStringLiteral("b.v"), QStringLiteral("c.v")}) {
            SessionFixture::write(in(QStringLiteral("rtl/") + name), "1");
            QVERIFY(uart->addFile(QStringLiteral("rtl/") + name, QString(), true, nullptr));
        }
        QVERIFY(uart->addProperty(QStringLiteral("p"), {}, 8, false, nullptr));
        QVERIFY(fixture->follow());
    }

    QString in(const QString &name) const { return uart->workingFolderPath() + u'/' + name; }
    QModelIndex file(const QString &name) const
    {
        return fixture->row(
            {QStringLiteral("uart"), QStringLiteral("Files"), QStringLiteral("rtl"), name});
    }
    QStringList paths() const
    {
        QStringList all;
        for (const MorvalenCore::DesignFile *each : uart->filesUnderNode(QString(), true))
            all.append(each->fileName());
        return all;
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(fixture->view(), key, modifiers);
    }

    std::optional<DesignTreeFixture> fixture;
    MorvalenCore::Interfaces::IDesign *uart = nullptr;
};
