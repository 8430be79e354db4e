#include "app/help/ManualBrowser.h"

#include "app/help/manualpages.h"

#include <QFileInfo>
#include <QTextTable>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString scheme = u"manual"_s;
constexpr int lineLength = 66; // in characters

QUrl urlOf(const QString &name) { return QUrl(scheme + u":/"_s + name + u".md"_s); }

} // namespace

ManualBrowser::ManualBrowser(QWidget *parent) : QTextBrowser(parent)
{
    setObjectName(u"manualBrowser"_s);
    setAccessibleName(tr("Manual"));
    setOpenExternalLinks(false);
    document()->setDocumentMargin(fontMetrics().averageCharWidth());
    connect(this, &QTextBrowser::sourceChanged, this, &ManualBrowser::dressTables);
}

QSize ManualBrowser::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * lineLength, QTextBrowser::sizeHint().height()};
}

// Tables of Markdown have neither room around their texts nor colours that fit a dark palette.
void ManualBrowser::dressTables()
{
    const QList<QTextFrame *> frames = document()->rootFrame()->childFrames();
    for (QTextFrame *frame : frames) {
        auto *table = qobject_cast<QTextTable *>(frame);
        if (!table)
            continue;
        QTextTableFormat format = table->format();
        format.setCellPadding(fontMetrics().averageCharWidth() / 2.0);
        format.setCellSpacing(0);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(palette().mid());
        format.setBorder(1);
        format.setBorderCollapse(true);
        table->setFormat(format);
    }
}

void ManualBrowser::showPage(const QString &name)
{
    const bool isKnown = manualpages::names().contains(name);
    setSource(urlOf(isKnown ? name : manualpages::contents), QTextDocument::MarkdownResource);
}

QString ManualBrowser::shownPage() const { return QFileInfo(source().path()).completeBaseName(); }

QVariant ManualBrowser::loadResource(int type, const QUrl &name)
{
    if (type != QTextDocument::MarkdownResource)
        return QVariant();
    return manualpages::page(QFileInfo(name.path()).completeBaseName());
}

bool ManualBrowser::findInPage(const QString &text, bool backwards)
{
    return find(text, backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags());
}

bool ManualBrowser::findText(const QString &text, bool backwards)
{
    if (text.isEmpty() || findInPage(text, backwards))
        return !text.isEmpty();
    const QStringList names = manualpages::names();
    const qsizetype here = names.indexOf(shownPage());
    const qsizetype step = backwards ? names.size() - 1 : 1;
    for (qsizetype tried = 1; tried <= names.size(); ++tried) {
        const QString &name = names[(here + tried * step) % names.size()];
        // What is shown differs from the source by its marks only, so that this finds the page.
        if (!manualpages::page(name).contains(text, Qt::CaseInsensitive))
            continue;
        if (name != shownPage())
            showPage(name);
        moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
        if (findInPage(text, backwards))
            return true;
    }
    return false;
}
