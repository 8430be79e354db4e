#include "app/help/HelpBrowser.h"

#include "app/help/ManualBrowser.h"
#include "app/help/manualpages.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

HelpBrowser::HelpBrowser(QWidget *parent)
    : QWidget(parent),
      manual(new ManualBrowser(this)),
      searchField(new QLineEdit(this)),
      searchNote(new QLabel(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(createBar());
    layout->addWidget(manual);
    setFocusProxy(manual);
    manual->showPage(manualpages::contents);

    auto *find = new QAction(this);
    find->setShortcut(QKeySequence::Find);
    find->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(find, &QAction::triggered, searchField, [this] {
        searchField->setFocus();
        searchField->selectAll();
    });
    addAction(find);
}

QWidget *HelpBrowser::createBar()
{
    auto *bar = new QToolBar(this);
    const auto add = [&](QStyle::StandardPixmap icon, const QString &text, const auto &slot) {
        QAction *action = bar->addAction(style()->standardIcon(icon), text);
        connect(action, &QAction::triggered, manual, slot);
        return action;
    };
    QAction *back = add(QStyle::SP_ArrowBack, tr("Back"), &QTextBrowser::backward);
    QAction *forward = add(QStyle::SP_ArrowForward, tr("Forward"), &QTextBrowser::forward);
    add(QStyle::SP_FileDialogContentsView, tr("Contents"),
        [this] { manual->showPage(manualpages::contents); });
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(manual, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(manual, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

    searchField->setObjectName(u"manualSearch"_s);
    searchField->setPlaceholderText(tr("Search the manual"));
    searchField->setAccessibleName(tr("Search the manual"));
    searchField->setClearButtonEnabled(true);
    bar->addWidget(searchField);
    bar->addWidget(searchNote);
    connect(searchField, &QLineEdit::textEdited, searchNote, &QLabel::clear);
    connect(searchField, &QLineEdit::returnPressed, this, [this] { search(false); });
    auto *previous = new QAction(this);
    previous->setShortcut(QKeySequence(Qt::SHIFT | Qt::Key_Return));
    previous->setShortcutContext(Qt::WidgetShortcut);
    connect(previous, &QAction::triggered, this, [this] { search(true); });
    searchField->addAction(previous);
    return bar;
}

void HelpBrowser::showCommand(const QString &word) { manual->showPage(word); }

void HelpBrowser::search(bool backwards)
{
    const bool found = manual->findText(searchField->text(), backwards);
    searchNote->setText(found || searchField->text().isEmpty() ? QString() : tr("Not found"));
}
