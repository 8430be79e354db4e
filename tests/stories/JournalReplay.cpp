#include "tests/stories/JournalReplay.h"

#include "app/journal/CommandJournal.h"
#include "tests/patience.h"
#include "tests/stories/Story.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

using Files = QHash<QString, QByteArray>;

constexpr JournalReplay::Exception unplayed[] = {
    {"BuildingUnsaved", "is about texts, and types its commands"},
    {"BusyWindow", "is refused what it wants to change, which is no entry"},
    {"ComponentWatch", "follows what other programs write"},
    {"Console", "types without running anything"},
    {"DialogNames", "only looks"},
    {"Find", "only looks, and replaces in texts"},
    {"Issues", "has builds that fail, which would end a script"},
    {"KeptTexts", "is about texts and other programs"},
    {"LeavingScript", "changes no design"},
    {"Links", "only looks"},
    {"Manual", "only looks"},
    {"Names", "only looks"},
    {"OlderSession", "opens what belongs to its session"},
    {"Preferences", "changes no design"},
    {"Reopening", "opens what belongs to its session"},
    {"Running", "changes no design"},
    {"Starting", "runs the start-up script, which each session has for itself"},
    {"SuddenEnd", "ends by signals, and is about the copies that are left"},
};

void compareFiles(const Files &expected, const Files &found, const QByteArray &journal)
{
    QVERIFY(!expected.isEmpty());
    for (auto file = expected.cbegin(); file != expected.cend(); ++file)
        QVERIFY2(found.value(file.key()) == file.value(),
                 journal + file.key().toUtf8() + "\n" + file.value() + "\n"
                     + found.value(file.key()));
    QCOMPARE(found.size(), expected.size());
}

// The files of components and projects that the story began with.
Files writtenOutside(const Story &story)
{
    Files outside = Story::firstWritten();
    erase_if(outside, [&](Files::iterator file) {
        return !file.key().endsWith(u".xml"_s) || file.key().startsWith(story.session() + u'/');
    });
    return outside;
}

} // namespace

std::span<const JournalReplay::Exception> JournalReplay::exceptions() { return unplayed; }

void JournalReplay::begin(const Story *story)
{
    older = story ? filesOf(story->session()) : Files();
    CommandJournal::instance()->clear();
    Story::forgetWritten();
}

Files JournalReplay::filesOf(const QString &session)
{
    Files files;
    for (const QString &folder : {u"Designs"_s, u"Projects"_s}) {
        const QDir at(session + u'/' + folder);
        for (const QString &name : at.entryList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
            const bool isFolder = QFileInfo(at.filePath(name)).isDir();
            const QString path = at.filePath(name) + (isFolder ? u"/component.xml"_s : QString());
            if (QFileInfo::exists(path))
                files.insert(folder + u'/' + name, Story::read(path));
        }
    }
    return files;
}

void JournalReplay::compare(const Story &story, const QString &earlier)
{
    const QByteArray journal = (earlier + CommandJournal::instance()->text()).toUtf8();
    const Files before = writtenOutside(story);
    Files expected = filesOf(story.session());
    erase_if(expected, [](Files::iterator file) {
        return older.contains(file.key()) && older.value(file.key()) == file.value();
    });
    for (auto file = before.cbegin(); file != before.cend(); ++file) {
        expected.insert(file.key(), Story::read(file.key()));
        Story::write(file.key(), *file);
    }
    run(story, journal);
    Files found = filesOf(story.path(u"again"_s));
    for (auto file = before.cbegin(); file != before.cend(); ++file) {
        found.insert(file.key(), Story::read(file.key()));
        Story::write(file.key(), expected.value(file.key()));
    }
    compareFiles(expected, found, journal);
    QVERIFY(QDir(story.path(u"again"_s)).removeRecursively());
}

void JournalReplay::run(const Story &story, const QByteArray &journal)
{
    const QString script = story.path(u"journal.tcl"_s);
    Story::write(script, journal);
    QProcess program;
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(QCoreApplication::applicationDirPath() + u"/../bin/morvalen"_s,
                  {u"--session"_s, story.path(u"again"_s), u"--batch"_s, script});
    QVERIFY(program.waitForFinished(patient(20'000)));
    QVERIFY2(program.exitCode() == 0, journal + program.readAll());
}
