// Settings files: whatever the bytes are, they are settings, of which each value can be asked for
// and none is lost when one is written; or they are kept aside as they are.

#include "tests/fuzz/Fuzzing.h"
#include "tests/fuzz/Mutator.h"
#include "tests/host/MorvalenCore/SessionFixture.h"

#include <MorvalenCore/BuildSettings.h>
#include <Qtilities/SettingsFile.h>

#include <QApplication>
#include <QSettings>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildSettings;
using MorvalenCore::DesignStructureManager;

namespace {

const QList<QByteArray> goodOnes {
    "[Builds]\njobs=8\nkeep_going=true\nlauncher=srun -n 1\ntarget_folders=/scratch, /tmp/x\n\n"
    "[Pools]\nlicences=2\nmemory=16\n",
    "[Identification]\norganization_name=local\n\n[Designs]\nCustom%20Design=Hardware\n",
    "[General]\na=1\n\n[Recent]\ndesigns=/a/b.xml, \"/c, d/e.xml\"\nprojects=@Invalid()\n",
    "[Window]\ngeometry=@ByteArray(\\x1\\xd9\\xd0\\xcb)\nsplit=@Variant(\\0\\0\\0\\t)\n"};

const QList<QByteArray> words {"[",
                               "]",
                               "=",
                               ",",
                               ";",
                               "@Invalid()",
                               "@ByteArray(",
                               "@Variant(",
                               "@Size(1 2)",
                               "@Rect(1 2 3",
                               "@DateTime(\\0\\0\\0\\x10\\0)",
                               "\\x",
                               "\\xfffe",
                               "\\0",
                               "\"",
                               "%20",
                               "%U20AC",
                               "%",
                               "jobs=0",
                               "jobs=-1",
                               "[Builds]",
                               "[Pools]",
                               "a/b/c=1",
                               "size=99999999999"};

class Settings : public Subject
{
public:
    QByteArray make(QRandomGenerator &random) override { return mutator.make(random); }

    QString finding(const QByteArray &input) override
    {
        QDir(session.path(u"session"_s)).removeRecursively();
        const QString file = session.path(u"session/settings.ini"_s);
        SessionFixture::write(file, input);
        const Qtilities::Core::Status secured = Qtilities::Core::SettingsFile(file).status();
        if (!secured.isOk())
            return u"cannot be used: "_s + secured.text();
        const QString aside = file + u".unreadable"_s;
        const bool isAside = QFileInfo::exists(aside);
        if (SessionFixture::read(isAside ? aside : file) != input)
            return u"is changed by looking"_s;
        if (isAside == secured.remarks().isEmpty())
            return u"is kept aside, or not, and the log says something else"_s;
        const auto builds = BuildSettings::current();
        if (!builds.isOk() && builds.status().text().isEmpty())
            return u"is refused for builds without a sentence"_s;
        return written(file);
    }

private:
    // Writes one value, and looks at it and at all others.
    QString written(const QString &file)
    {
        const QMap<QString, QVariant> before = valuesOf(file);
        auto *structures = DesignStructureManager::instance();
        const QString type = u"Custom Design"_s;
        const QString wanted = structures->defaultStructureNameForDesignType(type) == u"Hardware"
            ? u"Software"_s
            : u"Hardware"_s;
        if (!structures->setDefaultStructureNameForDesignType(type, wanted))
            return u"cannot be written"_s;
        if (structures->defaultStructureNameForDesignType(type) != wanted)
            return u"does not keep what is written"_s;
        const QMap<QString, QVariant> after = valuesOf(file);
        int changed = 0;
        for (auto value = before.cbegin(); value != before.cend(); ++value) {
            if (!after.contains(value.key()))
                return u"loses \"%1\""_s.arg(value.key());
            changed += after[value.key()] != value.value();
        }
        return changed > 1 ? u"changes %1 values when one is written"_s.arg(changed) : QString();
    }

    // By a name of its own each time: QSettings takes a file of the same size and time for the one
    // that it knows.
    static QMap<QString, QVariant> valuesOf(const QString &file)
    {
        static int number = 0;
        const QString copy = u"%1.%2"_s.arg(file).arg(++number);
        QMap<QString, QVariant> values;
        if (!QFile::exists(file) || !QFile::copy(file, copy))
            return values;
        const QSettings settings(copy, QSettings::IniFormat);
        for (const QString &key : settings.allKeys())
            values.insert(key, asTexts(settings.value(key)));
        return values;
    }

    // A list with a null character is read as a list of texts and written as one of values, which
    // are the same texts.
    static QVariant asTexts(const QVariant &value)
    {
        if (value.metaType() != QMetaType::fromType<QVariantList>())
            return value;
        const QVariantList items = value.toList();
        const bool areTexts = std::ranges::all_of(items, [](const QVariant &item) {
            return item.metaType() == QMetaType::fromType<QString>();
        });
        return areTexts ? QVariant(value.toStringList()) : value;
    }

    const SessionFixture session;
    const Mutator mutator {goodOnes, words};
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // A value can be a picture.
    const QApplication application(argc, argv);
    Settings settings;
    return Fuzzing(u"fuzz_settings"_s, settings).run(QCoreApplication::arguments().sliced(1));
}
