#include "app/Translation.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>

using namespace Qt::Literals::StringLiterals;

Translation::Translation(const QStringList &languages)
{
    for (const QString &language : languages) {
        // Who prefers English to German does not want German because English has no file.
        if (language == u"C" || QLocale(language).language() == QLocale::English || take(language))
            break;
    }
}

QString Translation::language() const
{
    return QFileInfo(texts.filePath()).completeBaseName().section(u'_', 1);
}

bool Translation::take(const QString &language)
{
    const QLocale locale(language);
    if (locale.language() == QLocale::C
        || !texts.load(locale, u"morvalen"_s, u"_"_s, u":/translations"_s))
        return false;
    if (qtTexts.load(locale, u"qtbase"_s, u"_"_s,
                     QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&qtTexts);
    // The translator that was installed last is asked first.
    QCoreApplication::installTranslator(&texts);
    return true;
}
