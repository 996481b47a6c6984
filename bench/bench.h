#pragma once
// A plain timing harness: each case registers itself, runs a few times, and reports the median.
// Beside a figure a case may report the bare SQLite time of the same work, which is its floor.

#include <QString>
#include <functional>
#include <vector>

namespace bench {

struct Context {
    int contacts = 0;  // size of the generated phonebook
    QString phonebook; // its path; gWS and gDB are open on it
};

struct Case {
    const char* name;
    int order; // cases run in this order
    std::function<void(const Context&)> run;
};

std::vector<Case>& Registry();
struct Register {
    Register(const char* name, int order, std::function<void(const Context&)> run) {
        Registry().push_back({name, order, std::move(run)});
    }
};

// Median of `runs` timings of f, in milliseconds.
double MedianMs(int runs, const std::function<void()>& f);
// Prints one line: name, size, time, and (when floor > 0) the floor and the ratio to it.
void Report(const QString& what, int contacts, double ms, double floorMs = 0);
// Peak resident memory of the process so far, in MB.
double PeakRssMb();

} // namespace bench
