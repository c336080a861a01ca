// Runs the benchmarks and prints the table of ratios. A benchmark is named "Group/operation"; its
// peer is "Group/peer…", and the limit of the ratio is given where the operation is registered.

#include "Report.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {
struct Row
{
    const char *operation;
    const char *peer;
    double limit;
};

std::vector<Row> &rows()
{
    static std::vector<Row> table;
    return table;
}

/// Collects medians instead of printing every repetition.
class MedianReporter : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &) override { return true; }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
                medians[run.run_name.function_name] = run.GetAdjustedRealTime();
        }
    }

    void Finalize() override
    {
        std::printf("%-44s %12s %12s %8s %8s\n", "operation (median, ns)", "ours", "peer", "ratio",
                    "limit");
        for (const Row &row : rows()) {
            if (!medians.contains(row.operation) || !medians.contains(row.peer))
                continue;
            const double ours = medians[row.operation];
            const double peer = medians[row.peer];
            const double ratio = ours / peer;
            std::printf("%-44s %12.1f %12.1f %8.2f %8.2f %s\n", row.operation, ours, peer, ratio,
                        row.limit, ratio <= row.limit ? "" : "MISSED");
        }
    }

    std::map<std::string, double> medians;
};
} // namespace

bool compareWith(const char *operation, const char *peer, double limit)
{
    rows().push_back({operation, peer, limit});
    return true;
}

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
