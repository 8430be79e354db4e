#pragma once

#include <QFont>
#include <QObject>

// What users choose for all editors. It is kept in the settings of the session; the object lives as
// long as the application.
class EditorSettings : public QObject
{
    Q_OBJECT

public:
    // How many columns a tab takes.
    static constexpr int tabWidth = 4;

    static EditorSettings *instance();

    // The font of texts; the platform's fixed font until another one is chosen. Setting the
    // default brings the platform's back.
    QFont font() const;
    void setFont(const QFont &font);
    static QFont defaultFont();

Q_SIGNALS:
    void fontChanged();

private:
    using QObject::QObject;
};
