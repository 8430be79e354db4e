#include "app/issues/IssueMarks.h"

#include "app/editor/EditorArea.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"
#include "app/issues/IssueList.h"

#include <QFileInfo>

IssueMarks::IssueMarks(const IssueList *theList, EditorArea *theArea, QObject *parent)
    : QObject(parent),
      list(theList),
      area(theArea)
{
    connect(list, &IssueList::changed, this, &IssueMarks::followList);
    connect(area, &EditorArea::currentPageChanged, this, &IssueMarks::markPages);
}

void IssueMarks::followList()
{
    ++state;
    markPages();
}

void IssueMarks::markPages()
{
    for (EditorPage *candidate : area->pages()) {
        auto *page = qobject_cast<TextPage *>(candidate);
        if (!page || markedAt.value(page, 0) == state)
            continue;
        if (!markedAt.contains(page))
            connect(page, &QObject::destroyed, this,
                    [this](QObject *gone) { markedAt.remove(gone); });
        markedAt.insert(page, state);
        mark(page);
    }
}

// A page has the canonical path of its file.
void IssueMarks::mark(TextPage *page) const
{
    QHash<QString, QString> canonical;
    QList<TextEdit::Sign> signs;
    for (const IssueList::Source &source : list->sources()) {
        for (const Issue &issue : source.issues) {
            if (issue.line < 1)
                continue;
            if (!canonical.contains(issue.file))
                canonical.insert(issue.file, QFileInfo(issue.file).canonicalFilePath());
            if (canonical.value(issue.file) == page->filePath())
                signs.append({issue.line, issue.severity, issue.message});
        }
    }
    page->textEdit()->setSigns(signs);
}
