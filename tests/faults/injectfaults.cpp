// Lets every writer of the program meet every fault, and says what was found.
//
//   inject_faults [WRITER...]

#include "tests/faults/FaultSweep.h"

#include <QApplication>
#include <QElapsedTimer>

#include <cstdio>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList wanted = QApplication::arguments().mid(1);
    int findings = 0;
    int faults = 0;
    int kills = 0;
    QElapsedTimer time;
    time.start();
    for (const WriterKind &kind : writerKinds()) {
        if (!wanted.isEmpty() && !wanted.contains(QLatin1StringView(kind.name)))
            continue;
        FaultSweep sweep(kind);
        sweep.run(FaultSweep::Extent::Whole);
        std::printf("%-20s %4d faults, %3d kills, %lld findings\n", kind.name, sweep.faults,
                    sweep.kills, static_cast<long long>(sweep.findings.size()));
        for (const QString &finding : std::as_const(sweep.findings))
            std::printf("    %s\n", qPrintable(finding));
        std::fflush(stdout);
        findings += int(sweep.findings.size());
        faults += sweep.faults;
        kills += sweep.kills;
    }
    std::printf("%-20s %4d faults, %3d kills, %d findings in %.1f s\n", "all", faults, kills,
                findings, double(time.elapsed()) / 1000);
    return findings == 0 ? 0 : 1;
}
