#include "app/window/themes.h"

#include "app/session/preferences.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>

using namespace Qt::Literals::StringLiterals;

namespace themes {

namespace {

// Follows every palette that it is given; the desktop's own style may not.
const QString plainStyle = u"Fusion"_s;

QPalette made(const QColor &window, const QColor &base, const QColor &text, const QColor &button,
              const QColor &link)
{
    const QColor dim((text.red() + window.red()) / 2, (text.green() + window.green()) / 2,
                     (text.blue() + window.blue()) / 2);
    QPalette palette(button, window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(role, text);
    palette.setColor(QPalette::PlaceholderText, dim);
    palette.setColor(QPalette::ToolTipBase, button);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Link, link);
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb5));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::HighlightedText})
        palette.setColor(QPalette::Disabled, role, dim);
    return palette;
}

QPalette paletteOf(preferences::Theme theme)
{
    if (theme == preferences::Theme::Dark)
        return made(QColor(0x2b, 0x2d, 0x30), QColor(0x1e, 0x1f, 0x22), QColor(0xdf, 0xe1, 0xe5),
                    QColor(0x3a, 0x3d, 0x41), QColor(0x6c, 0xb2, 0xf7));
    return made(QColor(0xef, 0xf0, 0xf1), Qt::white, QColor(0x23, 0x26, 0x29),
                QColor(0xf7, 0xf8, 0xf9), QColor(0x1d, 0x5f, 0xa8));
}

} // namespace

void apply()
{
    static const QString desktopStyle = QApplication::style()->name();
    static bool isOwn = false;
    const preferences::Theme theme = preferences::theme();
    if (theme != preferences::Theme::Desktop) {
        QApplication::setStyle(plainStyle);
        QApplication::setPalette(paletteOf(theme));
        isOwn = true;
    } else if (isOwn) {
        QApplication::setStyle(desktopStyle);
        QApplication::setPalette(QPalette());
        isOwn = false;
    }
}

} // namespace themes
