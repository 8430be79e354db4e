#pragma once

#include "app/designs/DesignTree.h"
#include "app/designs/DesignTreeModel.h"
#include "app/designs/DesignTreeView.h"
#include "app/designs/rowtexts.h"
#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/patience.h"

#include <MorvalenCore/EditorManager.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTest>

// The tree of open designs over designs on disk, shown, with a model that is checked at every
// change.
class DesignTreeFixture
{
public:
    // An editor manager that notes what it was asked for, and refuses when it has a reason.
    class Editors : public MorvalenCore::EditorManager
    {
    public:
        Qtilities::Core::Result<QWidget *>
        tryCreateEditorForPath(const QString &path, const QString &, bool, bool readOnly) override
        {
            opened.append(readOnly ? path + QStringLiteral(" (read-only)") : path);
            if (!refusal.isEmpty())
                return Qtilities::Core::Status::io(refusal);
            return &editor;
        }

        QStringList opened;
        QString refusal;

    private:
        QWidget editor;
    };

    DesignTreeFixture()
    {
        MorvalenCore::EditorManager::setInstance(&editors);
        tree.resize(700, 500);
        tree.show();
        shown = QTest::qWaitForWindowActive(&tree, patient());
    }
    ~DesignTreeFixture() { MorvalenCore::EditorManager::setInstance(nullptr); }

    DesignTreeView *view() const { return tree.treeView(); }
    DesignTreeModel *model() const { return static_cast<DesignTreeModel *>(view()->model()); }
    QLineEdit *filter() const { return tree.findChild<QLineEdit *>(); }

    // Lets the tree follow what was changed.
    bool follow() const
    {
        return QTest::qWaitFor([this] { return !model()->isBehind(); }, patient());
    }

    // The names of the rows, two blanks in front for each row above them, and behind a colon what
    // the other columns say, but for what version control knows.
    QStringList lines(const QModelIndex &parent = {}, int depth = 0) const
    {
        QStringList all;
        for (int row = 0; row < model()->rowCount(parent); ++row) {
            const QModelIndex index = model()->index(row, 0, parent);
            QStringList texts {textOf(index, DetailsColumn), textOf(index, StateColumn)};
            texts.removeAll(QString());
            const QString others = texts.join(QStringLiteral("; "));
            all.append(QString(depth * 2, QLatin1Char(' ')) + textOf(index, NameColumn)
                       + (others.isEmpty() ? QString() : QStringLiteral(": ") + others));
            all += lines(index, depth + 1);
        }
        return all;
    }

    static QString textOf(const QModelIndex &index, int column)
    {
        return index.siblingAtColumn(column).data().toString();
    }

    // The row with these names, from the design on; invalid when there is none.
    QModelIndex row(const QStringList &names) const
    {
        QModelIndex found;
        for (const QString &name : names) {
            const QModelIndexList matches = model()->match(
                model()->index(0, 0, found), Qt::DisplayRole, name, 1, Qt::MatchExactly);
            if (matches.isEmpty())
                return {};
            found = matches.first();
        }
        return found;
    }

    // The names of the rows below such a row, or of the designs.
    QStringList names(const QStringList &path = {}) const
    {
        QStringList all;
        const QModelIndex parent = row(path);
        for (int place = 0; place < model()->rowCount(parent); ++place)
            all.append(model()->index(place, 0, parent).data().toString());
        return all;
    }

    // A new design, once the tree shows it; null when that cannot be.
    MorvalenCore::Interfaces::IDesign *makeDesign(const QString &name)
    {
        auto *design =
            session.create(name, QStringLiteral("Hardware Design"), QStringLiteral("Hardware"));
        return follow() ? design : nullptr;
    }

    QPoint centre(const QModelIndex &index) const
    {
        view()->scrollTo(index);
        return view()->visualRect(index).center();
    }

    void select(const QModelIndex &index, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, modifiers, centre(index));
    }

    // The menu of a row, asked for with the mouse, or by a key for what is selected.
    QMenu *menu(const QModelIndex &index) const
    {
        const QPoint place = view()->viewport()->mapTo(&tree, centre(index));
        QTest::mouseClick(tree.windowHandle(), Qt::RightButton, {}, place);
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    }
    QMenu *menu() const
    {
        QTest::keyClick(view(), Qt::Key_F10, Qt::ShiftModifier);
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    }

    // The texts of a menu's entries without the marks of their keys; in parentheses those that
    // cannot be chosen.
    static QStringList entries(const QMenu *menu)
    {
        QStringList texts;
        const QList<QAction *> actions = menu ? menu->actions() : QList<QAction *>();
        for (const QAction *action : actions) {
            QString text = action->text().remove(QLatin1Char('&'));
            if (!action->isSeparator())
                texts.append(action->isEnabled() ? text
                                                 : QLatin1Char('(') + text + QLatin1Char(')'));
        }
        return texts;
    }

    // Chooses an entry with the mouse; false when there is none.
    static bool choose(QMenu *menu, const QString &text)
    {
        const QList<QAction *> actions = menu ? menu->actions() : QList<QAction *>();
        for (QAction *action : actions) {
            if (action->text().remove(QLatin1Char('&')) != text)
                continue;
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
            return true;
        }
        return false;
    }

    SessionFixture session;
    Editors editors;
    DesignTree tree;
    bool shown = false;
    QAbstractItemModelTester tester {model(),
                                     QAbstractItemModelTester::FailureReportingMode::QtTest};
};
