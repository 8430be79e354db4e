// The pages that "make docs" makes of the public headers.

#include "tests/needed.h"
#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_ApiPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPublicHeaderHasAPageWithoutAWarning();
};

namespace {

// As pages are named: Logger.h becomes Logger_8h.
QStringList publicHeaders()
{
    QStringList headers;
    for (const QString &folder : {u"host/Qtilities/include"_s, u"host/MorvalenCore/include"_s}) {
        QDirIterator files(QStringLiteral(SOURCE_DIR "/") + folder, {u"*.h"_s}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext())
            headers.append(QFileInfo(files.next()).completeBaseName());
    }
    for (const QString &header : QStringLiteral(PUBLIC_HEADERS).split(u','))
        headers.append(QFileInfo(header).completeBaseName());
    return headers;
}

} // namespace

void tst_ApiPages::everyPublicHeaderHasAPageWithoutAWarning()
{
    NEEDS_TOOL("doxygen", "doxygen");
    const QTemporaryDir folder;
    QProcess docs;
    docs.setProcessChannelMode(QProcess::MergedChannels);
    docs.start(QStringLiteral(SOURCE_DIR "/scripts/docs"), {folder.filePath(u"docs"_s)});
    QVERIFY(docs.waitForFinished(patient(90'000)));
    QCOMPARE(QString::fromUtf8(docs.readAll()), folder.filePath(u"docs/html/index.html\n"_s));
    QCOMPARE(docs.exitCode(), 0);

    const QStringList headers = publicHeaders();
    QVERIFY(headers.size() > 80);
    QStringList missing;
    for (const QString &header : headers) {
        if (!QFileInfo::exists(folder.filePath(u"docs/html/%1_8h.html"_s.arg(header))))
            missing.append(header);
    }
    QCOMPARE(missing.join(u'\n'), QString());
}

GUILESS_TEST_CLASS(tst_ApiPages)
#include "tst_ApiPages.moc"
