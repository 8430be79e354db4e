#include "app/builds/unsavedpages.h"

#include "app/editor/EditorArea.h"
#include "app/editor/EditorPage.h"
#include "app/editor/unsavedchanges.h"
#include "app/session/preferences.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QCheckBox>
#include <QCoreApplication>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;
using preferences::PagesBeforeBuild;
using Qtilities::CoreGui::QtilitiesApplication;

namespace unsavedpages {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(unsavedpages)
};

enum class Answer { Save, Leave, Cancel };

Answer ask(const EditorArea &editors)
{
    QStringList titles;
    for (const EditorPage *page : editors.modifiedPages())
        titles.append(page->title());
    QMessageBox box(
        QMessageBox::Question, Texts::tr("Unsaved Changes"),
        titles.size() == 1
            ? Texts::tr("\"%1\" has changes that are not saved.").arg(titles.first())
            : Texts::tr("%n pages have changes that are not saved.", nullptr, int(titles.size())),
        QMessageBox::Save | QMessageBox::Ignore | QMessageBox::Cancel, editors.window());
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(
        (titles.size() == 1 ? QString() : unsavedchanges::named(titles) + u"\n\n"_s)
        + Texts::tr("A build takes what is on disk."));
    box.button(QMessageBox::Save)->setText(Texts::tr("&Save and Build"));
    box.button(QMessageBox::Ignore)->setText(Texts::tr("&Build Without Saving"));
    box.setDefaultButton(QMessageBox::Save);
    box.setEscapeButton(QMessageBox::Cancel);
    auto *always = new QCheckBox(Texts::tr("Do this &always, without asking"), &box);
    box.setCheckBox(always);
    const int answer = box.exec();
    if (answer != QMessageBox::Save && answer != QMessageBox::Ignore)
        return Answer::Cancel;
    const bool saves = answer == QMessageBox::Save;
    if (always->isChecked())
        preferences::setPagesBeforeBuild(saves ? PagesBeforeBuild::Save : PagesBeforeBuild::Leave);
    return saves ? Answer::Save : Answer::Leave;
}

Answer answerFor(const EditorArea &editors)
{
    switch (preferences::pagesBeforeBuild()) {
    case PagesBeforeBuild::Save:
        return Answer::Save;
    case PagesBeforeBuild::Leave:
        return Answer::Leave;
    default:
        return ask(editors);
    }
}

} // namespace

bool settle()
{
    const QMainWindow *window = QtilitiesApplication::mainWindow();
    const QPointer<EditorArea> editors = window ? window->findChild<EditorArea *>() : nullptr;
    if (!editors || editors->modifiedPages().isEmpty())
        return true;
    const Answer answer = answerFor(*editors);
    if (answer == Answer::Save)
        return editors && editors->saveAll();
    return answer == Answer::Leave;
}

} // namespace unsavedpages
