#include "tests/TestClass.h"

#include <Qtilities/codefolder.h>

#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::codeFolder;

class tst_CodeFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ofALibrary()
    {
        const QString folder = codeFolder(reinterpret_cast<const void *>(&codeFolder));
        QVERIFY2(QFileInfo::exists(folder + u"/libQtilities.so.1"_s), qPrintable(folder));
        QCOMPARE(QFileInfo(folder).canonicalFilePath(), folder);
    }

    // The program is told by the kernel, since it may be called by any name from any folder.
    void ofTheProgram()
    {
        static const int mine = 0;
        const QString before = QDir::currentPath();
        QDir::setCurrent(QDir::rootPath());
        const QString folder = codeFolder(&mine);
        QDir::setCurrent(before);
        QCOMPARE(folder, QFileInfo(QCoreApplication::applicationDirPath()).canonicalFilePath());
    }

    void ofNothing() { QCOMPARE(codeFolder(nullptr), QString()); }
};

TEST_CLASS(tst_CodeFolder)

#include "tst_CodeFolder.moc"
