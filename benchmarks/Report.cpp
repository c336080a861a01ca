// Runs the benchmarks and prints the tables: operations beside their peers, then memory.

#include "Report.h"
#include "Memory.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace {
struct Row
{
    const char *operation;
    /// Null for rows that are held to a time.
    const char *peer;
    double limit;
};

std::vector<Row> &rows()
{
    static std::vector<Row> table;
    return table;
}

/// "QHash look-up" of "Naming/peer: QHash look-up".
std::string_view peerName(std::string_view peer)
{
    constexpr std::string_view Mark = "/peer: ";
    const size_t mark = peer.find(Mark);
    return mark == std::string_view::npos ? peer : peer.substr(mark + Mark.size());
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
                _medians[run.run_name.function_name] = run.GetAdjustedRealTime();
        }
    }

    void Finalize() override
    {
        std::printf("%-46s %12s %12s %7s %7s %8s  %s\n", "operation (medians in ns)", "ours",
                    "peer", "ratio", "limit", "of limit", "peer");
        for (const Row &row : rows())
            print(row);
        std::printf("%d of %d figures hold.\n", _held, _printed);
    }

private:
    void print(const Row &row)
    {
        const auto ours = _medians.find(row.operation);
        if (ours == _medians.end())
            return;
        if (!row.peer) {
            std::printf("%-46s %12.1f %12s %7s %4.0f ns", row.operation, ours->second, "", "",
                        row.limit);
            finish(ours->second / row.limit, "");
            return;
        }
        const auto peer = _medians.find(row.peer);
        if (peer == _medians.end()) {
            std::printf("%-46s was measured without its peer %s\n", row.operation, row.peer);
            return;
        }
        const double ratio = ours->second / peer->second;
        std::printf("%-46s %12.1f %12.1f %7.2f %7.2f", row.operation, ours->second, peer->second,
                    ratio, row.limit);
        finish(ratio / row.limit, peerName(row.peer));
    }

    void finish(double partOfLimit, std::string_view peer)
    {
        const bool isHeld = partOfLimit <= 1;
        ++_printed;
        _held += int(isHeld);
        std::printf(" %8.2f  %.*s%s\n", partOfLimit, int(peer.size()), peer.data(),
                    isHeld ? "" : "  MISSED");
    }

    std::map<std::string, double, std::less<>> _medians;
    int _held = 0;
    int _printed = 0;
};
} // namespace

bool compareWith(const char *operation, const char *peer, double limit)
{
    rows().push_back({operation, peer, limit});
    return true;
}

bool holdBelow(const char *operation, double limit)
{
    rows().push_back({operation, nullptr, limit});
    return true;
}

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    MedianReporter reporter;
    // With a filter, somebody looks at a few operations only.
    const bool isWhole = benchmark::GetBenchmarkFilter().empty();
    benchmark::RunSpecifiedBenchmarks(&reporter);
    if (isWhole)
        printMemory();
    return 0;
}
