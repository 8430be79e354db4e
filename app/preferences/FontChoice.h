#pragma once

#include <QFont>
#include <QGroupBox>

#include <optional>

class QFontComboBox;
class QLabel;
class QSpinBox;

// A group to choose a family and a size in points, with a sample, or to leave both as usual: the
// group is unchecked then.
class FontChoice : public QGroupBox
{
    Q_OBJECT

public:
    // The usual font is where the choice starts.
    FontChoice(const QString &title, const QFont &usual, const std::optional<QFont> &chosen,
               QWidget *parent = nullptr);

    // Nothing for the usual font.
    std::optional<QFont> chosen() const;

private:
    QFont shownFont() const;
    void showSample();

    QFont usualFont;
    QFontComboBox *family;
    QSpinBox *size;
    QLabel *sample;
};
