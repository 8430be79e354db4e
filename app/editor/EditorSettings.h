#pragma once

#include "app/editor/Indentation.h"

#include <QFont>
#include <QObject>

// What users choose for all editors. It is kept in the settings of the session; the object lives as
// long as the application.
class EditorSettings : public QObject
{
    Q_OBJECT

public:
    static EditorSettings *instance();

    // The font of texts; the platform's fixed font until another one is chosen. Setting the
    // default brings the platform's back.
    QFont font() const;
    void setFont(const QFont &font);
    static QFont defaultFont();
    // The font itself when all its characters are as wide as each other, else the next best one
    // of which that is so.
    static QFont fixedPitch(const QFont &font);

    // The font as it is shown, so many points larger or smaller than the chosen one.
    QFont shownFont() const;
    int zoom() const;
    void setZoom(int points);

    // With what lines are indented, and how many columns a tab takes. A text that has indented
    // lines goes on as they do when that is wanted, which it usually is.
    static constexpr int widestTab = 16;
    Indentation indentation() const;
    void setIndentation(const Indentation &indentation);
    bool followsText() const;
    void setFollowsText(bool follow);

Q_SIGNALS:
    // The font, its size as shown or the width of tabs.
    void fontChanged();

private:
    using QObject::QObject;
};
