#pragma once

#include <QStringList>
#include <QTranslator>

// The texts of the window in another language, as long as this lives. Texts that are made later are
// in it, so it comes before the window. What commands tell is English for every user, since scripts
// read it.
class Translation
{
public:
    // Takes the first of the languages that it speaks; they are named as QLocale::uiLanguages()
    // does.
    explicit Translation(const QStringList &languages);

    // The language that it took, as its file is named ("de"). Empty for English, in which the texts
    // are written.
    QString language() const;

private:
    bool take(const QString &language);

    // Of Qt's own dialogs and buttons; it may be missing.
    QTranslator qtTexts;
    QTranslator texts;
};
