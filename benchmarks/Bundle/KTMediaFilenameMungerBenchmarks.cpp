#include "Report.h"

#include <KTUtility/KTMediaFilenameMunger>

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <dirent.h>

using namespace Qt::StringLiterals;

namespace {
/// A folder that holds "photo.0.jpg" and so on.
class Copies
{
public:
    explicit Copies(int count)
    {
        for (int number = 0; number < count; ++number)
            QFile(path(u"photo.%1.jpg"_s.arg(number))).open(QIODevice::WriteOnly);
    }

    QString path(const QString &name) const { return _folder.filePath(name); }
    QByteArray folder() const { return QFile::encodeName(_folder.path()); }

private:
    QTemporaryDir _folder;
};

template<int Count>
const Copies &copies()
{
    static const Copies copies(Count);
    return copies;
}

template<int Count>
void peerListing(benchmark::State &state)
{
    const QByteArray path = copies<Count>().folder();
    for (auto _ : state) {
        DIR *const folder = ::opendir(path.constData());
        while (const dirent *entry = ::readdir(folder))
            benchmark::DoNotOptimize(entry->d_name);
        ::closedir(folder);
    }
}

template<int Count>
void nextNumber(benchmark::State &state)
{
    const QString path = copies<Count>().path(u"photo.jpg"_s);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            KTMediaFilenameMunger::nextInstanceNumberForOriginalFilename(path));
}

BENCHMARK(peerListing<10000>)->Name("Media/peer: listing of 10,000 copies");
BENCHMARK(nextNumber<10000>)->Name("Media/next number, 10,000 copies");
BENCHMARK(peerListing<20000>)->Name("Media/peer: listing of 20,000 copies");
BENCHMARK(nextNumber<20000>)->Name("Media/next number, 20,000 copies");
BENCHMARK(peerListing<32767>)->Name("Media/peer: listing of 32,767 copies");
BENCHMARK(nextNumber<32767>)->Name("Media/next number, 32,767 copies");
BENCHMARK(peerListing<100000>)->Name("Media/peer: listing of 100,000 copies");
BENCHMARK(nextNumber<100000>)->Name("Media/next number, 100,000 copies");

// The search goes the longest way, to a fourth of all numbers, just below a power of two.
const bool isRegistered =
    compareWith("Media/next number, 10,000 copies", "Media/peer: listing of 10,000 copies", 0.35) &&
    compareWith("Media/next number, 20,000 copies", "Media/peer: listing of 20,000 copies", 0.35) &&
    compareWith("Media/next number, 32,767 copies", "Media/peer: listing of 32,767 copies", 1.3) &&
    compareWith("Media/next number, 100,000 copies", "Media/peer: listing of 100,000 copies", 0.2);
} // namespace
