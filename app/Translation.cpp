#include "app/Translation.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>

using namespace Qt::Literals::StringLiterals;

namespace {

// Qt's own buttons, for where Qt's translations are not installed.
[[maybe_unused]] constexpr const char *buttons[] = {
    QT_TRANSLATE_NOOP("QPlatformTheme", "OK"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Save"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Save All"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Open"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "&Yes"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Yes to &All"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "&No"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "N&o to All"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Retry"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Close"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Cancel"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Discard"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Help"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Apply"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Reset"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Restore Defaults"),
};

} // namespace

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
