#include "app/ending/SuddenEnd.h"

#include "app/editor/EditorArea.h"
#include "app/editor/TextPage.h"
#include "app/file/designsaving.h"
#include "app/keeping/TextKeeper.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/atomicfile.h>
#include <Qtilities/Logger.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QSocketNotifier>
#include <QThread>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;

namespace {

volatile sig_atomic_t writingEnd = -1;

extern "C" void noteEnd(int number)
{
    const int error = errno;
    const auto byte = static_cast<unsigned char>(number);
    if (write(writingEnd, &byte, 1) != 1) { }
    errno = error;
}

SuddenEnd *&theEnd()
{
    static SuddenEnd *end = nullptr;
    return end;
}

void log(const QString &text) { Logger::instance()->logMessage(QString(), Logger::Warning, text); }

// A new file of a name like that of the text.
QString backupOf(const QString &path)
{
    const QFileInfo info(path);
    const QString suffix = info.suffix().isEmpty() ? QString() : u'.' + info.suffix();
    const QString stem = DesignManager::instance()->path(DesignManager::BackupsPath) + u'/'
        + info.completeBaseName() + u'-'
        + QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s) + u'-'
        + QString::number(QCoreApplication::applicationPid());
    QString file = stem + suffix;
    for (int i = 2; QFileInfo::exists(file); ++i)
        file = stem + u'-' + QString::number(i) + suffix;
    return file;
}

// What its coding cannot say is written as UTF-8.
Status backUp(const TextPage &page, const QString &file)
{
    const Status written = page.saveCopy(file);
    return written.isOk()
        ? written
        : Qtilities::Core::writeFileAtomically(file, page.unsaved().text.toUtf8());
}

} // namespace

SuddenEnd::SuddenEnd(EditorArea *area, TextKeeper *textKeeper, QObject *parent)
    : QObject(parent),
      editors(area),
      keeper(textKeeper)
{
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    writingEnd = pipeEnds[1];
    arrival = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(arrival, &QSocketNotifier::activated, this, &SuddenEnd::takeSignal);
    struct sigaction noting = {};
    noting.sa_handler = noteEnd;
    // The second one does what it always does.
    noting.sa_flags = int(SA_RESTART | SA_RESETHAND);
    for (size_t i = 0; i < signalNumbers.size(); ++i) {
        sigaction(signalNumbers[i], nullptr, &before[i]);
        if (before[i].sa_handler != SIG_IGN)
            sigaction(signalNumbers[i], &noting, nullptr);
    }
    isArmed = true;
    theEnd() = this;
    // Where the display is lost, Qt ends the process.
    static const int registered = std::atexit(atExit);
    Q_UNUSED(registered)
}

SuddenEnd::~SuddenEnd()
{
    disarm();
    for (const int end : pipeEnds)
        close(end);
}

void SuddenEnd::disarm()
{
    if (!isArmed)
        return;
    isArmed = false;
    theEnd() = nullptr;
    for (size_t i = 0; i < signalNumbers.size(); ++i)
        sigaction(signalNumbers[i], &before[i], nullptr);
    writingEnd = -1;
}

void SuddenEnd::takeSignal()
{
    unsigned char number = 0;
    if (read(pipeEnds[0], &number, 1) != 1 || !isArmed)
        return;
    secure(
        tr("The program is ended by a signal: %1").arg(QString::fromLocal8Bit(strsignal(number))));
    disarm();
    raise(number);
}

void SuddenEnd::atExit()
{
    SuddenEnd *end = theEnd();
    if (!end || !qApp || QThread::currentThread() != qApp->thread())
        return;
    end->secure(tr("The program is ended from outside, as when its display is gone"));
    end->disarm();
}

void SuddenEnd::secure(const QString &reason)
{
    log(reason);
    secureTexts();
    secureDesigns();
    keeper->keepNow();
    Q_EMIT ending();
}

void SuddenEnd::secureTexts() const
{
    for (const EditorPage *candidate : editors->modifiedPages()) {
        const auto *page = qobject_cast<const TextPage *>(candidate);
        if (!page) {
            log(tr("The changes in \"%1\" are lost").arg(candidate->title()));
            continue;
        }
        const QString file = backupOf(page->filePath());
        const Status written = backUp(*page, file);
        log(written.isOk() ? tr("The changes in \"%1\" are in \"%2\"").arg(page->filePath(), file)
                           : tr("The changes in \"%1\" cannot be kept: %2")
                                 .arg(page->filePath(), written.text()));
    }
}

void SuddenEnd::secureDesigns() const
{
    for (const QString &id : designsaving::modifiedDesigns()) {
        IDesign *design = DesignManager::instance()->design(id);
        const auto copy = DesignManager::instance()->tryBackUpDesign(design);
        log(copy.isOk() ? tr("The changes of the design \"%1\" are in \"%2\"")
                              .arg(design->name(), copy.value())
                        : tr("The changes of the design \"%1\" cannot be kept: %2")
                              .arg(design->name(), copy.status().text()));
    }
}
