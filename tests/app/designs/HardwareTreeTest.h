#pragma once

#include "tests/app/designs/DesignTreeFixture.h"

#include <MorvalenCore/ChangeBracket.h>

#include <optional>

// What tests of the tree share that use it by keys and the mouse: it shows a hardware design
// "uart".
class HardwareTreeTest : public QObject
{
    Q_OBJECT

protected:
    // Adds files to the design, in one bracket.
    void add(const QStringList &files)
    {
        MorvalenCore::ChangeBracket::instance()->open();
        for (const QString &file : files)
            QVERIFY(uart->addFile(file, QString(), true, nullptr));
        MorvalenCore::ChangeBracket::instance()->close();
        QVERIFY(fixture->follow());
    }
    QModelIndex rtl(const QString &name) const
    {
        return fixture->row(
            {QStringLiteral("uart"), QStringLiteral("Files"), QStringLiteral("rtl"), name});
    }
    void select(const QModelIndex &index)
    {
        fixture->select(index);
        QCOMPARE(fixture->view()->currentIndex().siblingAtColumn(0), index);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(fixture->view(), key, modifiers);
    }

    std::optional<DesignTreeFixture> fixture;
    MorvalenCore::Interfaces::IDesign *uart = nullptr;

protected Q_SLOTS:
    void init()
    {
        fixture.emplace();
        QVERIFY(fixture->shown);
        uart = fixture->makeDesign(QStringLiteral("uart"));
        QVERIFY(uart);
    }
    void cleanup() { fixture.reset(); }
};
