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

const Copies &tenThousand()
{
    static const Copies copies(10000);
    return copies;
}

const Copies &twentyThousand()
{
    static const Copies copies(20000);
    return copies;
}

template<const Copies &(*Folder)()>
void peerListing(benchmark::State &state)
{
    const QByteArray path = Folder().folder();
    for (auto _ : state) {
        DIR *const folder = ::opendir(path.constData());
        while (const dirent *entry = ::readdir(folder))
            benchmark::DoNotOptimize(entry->d_name);
        ::closedir(folder);
    }
}

template<const Copies &(*Folder)()>
void nextNumber(benchmark::State &state)
{
    const QString path = Folder().path(u"photo.jpg"_s);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            KTMediaFilenameMunger::nextInstanceNumberForOriginalFilename(path));
}

BENCHMARK(peerListing<tenThousand>)->Name("Media/peer: listing of 10,000 copies");
BENCHMARK(nextNumber<tenThousand>)->Name("Media/next number, 10,000 copies");
BENCHMARK(peerListing<twentyThousand>)->Name("Media/peer: listing of 20,000 copies");
BENCHMARK(nextNumber<twentyThousand>)->Name("Media/next number, 20,000 copies");

const bool isRegistered =
    compareWith("Media/next number, 10,000 copies", "Media/peer: listing of 10,000 copies", 1.2) &&
    compareWith("Media/next number, 20,000 copies", "Media/peer: listing of 20,000 copies", 1.3);
} // namespace
