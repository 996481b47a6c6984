// kelvarin-bench: builds phonebooks of generated contacts through the store and times the work
// that a user waits for, each beside the bare SQLite time of the same queries.
#include "app/mmain.h"
#include "bench/bench.h"
#include "bench/generate.h"
#include "core/globals.h"
#include "core/language.h"
#include "phonebook/createdb.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <sys/resource.h>

namespace bench {

std::vector<Case>& Registry() {
    static std::vector<Case> r;
    return r;
}

double MedianMs(int runs, const std::function<void()>& f) {
    std::vector<double> t;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        f();
        t.push_back(timer.nsecsElapsed() / 1e6);
    }
    std::sort(t.begin(), t.end());
    return t[t.size() / 2];
}

void Report(const QString& what, int contacts, double ms, double floorMs) {
    if (floorMs > 0)
        std::printf("%-58s %7d  %9.1f ms   bare %8.1f ms   ratio %5.2f\n", qPrintable(what), contacts, ms,
                    floorMs, ms / floorMs);
    else
        std::printf("%-58s %7d  %9.1f ms\n", qPrintable(what), contacts, ms);
    std::fflush(stdout);
}

double PeakRssMb() {
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return u.ru_maxrss / 1024.0;
}

} // namespace bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    mLanguageEng::lngEng();
    QTemporaryDir dir;
    auto& cases = bench::Registry();
    std::stable_sort(cases.begin(), cases.end(),
                     [](const bench::Case& a, const bench::Case& b) { return a.order < b.order; });
    std::printf("%-58s %7s  %12s\n", "what", "size", "median");
    const QList<int> sizes = qEnvironmentVariableIsSet("KELVARIN_BENCH_SIZE")
                                 ? QList<int>{qEnvironmentVariableIntValue("KELVARIN_BENCH_SIZE")}
                                 : QList<int>{10000, 100000};
    for (int contacts : sizes) {
        bench::Context ctx;
        ctx.contacts = contacts;
        ctx.phonebook = dir.filePath(QStringLiteral("bench-%1.kvdb").arg(contacts));
        if (mAccess::CreateDB(ctx.phonebook, false) != 1) {
            std::fprintf(stderr, "cannot create %s\n", qPrintable(ctx.phonebook));
            return 1;
        }
        gDBPath = ctx.phonebook;
        gNotConnected = false;
        QElapsedTimer timer;
        timer.start();
        bench::Generate(contacts);
        bench::Report(QStringLiteral("generate contacts through the store (one transaction)"), contacts,
                      timer.nsecsElapsed() / 1e6);
        // KELVARIN_BENCH_ONLY=<text> runs only the cases whose name holds that text.
        const QString only = qEnvironmentVariable("KELVARIN_BENCH_ONLY");
        for (const bench::Case& c : cases)
            if (only.isEmpty() || QString::fromUtf8(c.name).contains(only, Qt::CaseInsensitive)) c.run(ctx);
        mMain::Closing();
    }
    std::printf("peak resident memory: %.0f MB\n", bench::PeakRssMb());
    return 0;
}
