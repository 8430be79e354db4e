#include "app/preferences/FontChoice.h"

#include <QFontComboBox>
#include <QFontInfo>
#include <QFormLayout>
#include <QLabel>
#include <QSpinBox>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int smallest = 6;
constexpr int largest = 48;

} // namespace

FontChoice::FontChoice(const QString &title, const QFont &usual, const std::optional<QFont> &chosen,
                       QWidget *parent)
    : QGroupBox(title, parent),
      usualFont(usual),
      family(new QFontComboBox(this)),
      size(new QSpinBox(this)),
      sample(new QLabel(u"files add rtl/uart.v  # 0O 1lI {}[]"_s, this))
{
    const QFontInfo shown(chosen.value_or(usual));
    setCheckable(true);
    setChecked(chosen.has_value());
    family->setFontFilters(QFontComboBox::MonospacedFonts);
    family->setCurrentFont(QFont(shown.family()));
    size->setRange(smallest, largest);
    size->setSuffix(tr(" pt"));
    size->setValue(shown.pointSize());
    sample->setTextFormat(Qt::PlainText);

    auto *form = new QFormLayout(this);
    form->addRow(tr("Family:"), family);
    form->addRow(tr("Size:"), size);
    form->addRow(sample);
    connect(family, &QFontComboBox::currentFontChanged, this, &FontChoice::showSample);
    connect(size, &QSpinBox::valueChanged, this, &FontChoice::showSample);
    connect(this, &QGroupBox::toggled, this, &FontChoice::showSample);
    showSample();
}

std::optional<QFont> FontChoice::chosen() const
{
    return isChecked() ? std::optional(shownFont()) : std::nullopt;
}

QFont FontChoice::shownFont() const
{
    if (!isChecked())
        return usualFont;
    QFont font(family->currentFont().family());
    font.setStyleHint(QFont::TypeWriter);
    font.setPointSize(size->value());
    return font;
}

void FontChoice::showSample() { sample->setFont(shownFont()); }
