#include "app/editor/DifferenceDialog.h"

#include "app/editor/EditorSettings.h"
#include "app/editor/linediff.h"
#include "app/editor/shades.h"
#include "app/places/TextLinks.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTextBlock>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize usualSize(760, 480);
constexpr int tint = 30;

// The colour behind a line, by its first character.
QColor shade(const QString &line, const QPalette &palette)
{
    const QColor base = palette.color(QPalette::Base);
    if (line.startsWith(u'-'))
        return shades::mix(base, Qt::red, tint);
    if (line.startsWith(u'+'))
        return shades::mix(base, Qt::green, tint);
    return line.startsWith(u"@@"_s) ? shades::gutter(palette) : base;
}

void colourLines(QPlainTextEdit *text)
{
    for (QTextBlock block = text->document()->firstBlock(); block.isValid(); block = block.next()) {
        QTextBlockFormat format;
        format.setBackground(shade(block.text(), text->palette()));
        QTextCursor(block).setBlockFormat(format);
    }
}

// The line of the page that a part begins at; 0 for other lines.
int lineOfPart(const QString &line)
{
    static const QRegularExpression numbers(uR"(^@@ -\d+ \+(\d+) @@)"_s);
    return numbers.match(line).captured(1).toInt();
}

QList<TextLinks::Link> linksIn(const QString &line)
{
    return lineOfPart(line) > 0 ? QList<TextLinks::Link> {{0, line.size()}}
                                : QList<TextLinks::Link>();
}

} // namespace

DifferenceDialog::DifferenceDialog(const QString &title, const QString &onDisk, const QString &here,
                                   QWidget *parent)
    : QDialog(parent)
{
    setObjectName(u"difference"_s);
    setWindowTitle(tr("Difference: %1").arg(title));
    resize(usualSize);
    const QString difference = linediff::text(onDisk.split(u'\n'), here.split(u'\n'));
    auto *label = new QLabel(difference.isEmpty()
                                 ? tr("The lines are the same; what differs is how they end, or "
                                      "how their characters are written.")
                                 : tr("Lines with \"-\" are on disk only, lines with \"+\" are "
                                      "here only."),
                             this);
    label->setWordWrap(true);
    auto *text = new QPlainTextEdit(difference, this);
    text->setAccessibleName(tr("Difference"));
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(EditorSettings::instance()->font());
    text->setTabStopDistance(EditorSettings::instance()->indentation().width
                             * text->fontMetrics().horizontalAdvance(u' '));
    colourLines(text);
    new TextLinks(text, linksIn,
                  [this](const QString &line, qsizetype) { Q_EMIT lineWanted(lineOfPart(line)); });
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(text);
    layout->addWidget(buttons);
    text->setFocus();
}
