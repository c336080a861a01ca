// Takes a pack of inputs apart and puts one together, for fuzz/run:
// KTUtilityFuzzPack unpack PACK FOLDER, KTUtilityFuzzPack pack FOLDER PACK

#include "InputPack.h"

#include <QFile>

#include <cstdio>
#include <string_view>

namespace {
int failed(const QString &what)
{
    std::fprintf(stderr, "%s\n", qPrintable(what));
    return 1;
}

int written(bool allWritten, const QString &path)
{
    return allWritten ? 0 : failed(QStringLiteral("Cannot write to %1.").arg(path));
}
} // namespace

int main(int argc, char **argv)
{
    const std::string_view command(argc == 4 ? argv[1] : "");
    if (command != "pack" && command != "unpack")
        return failed(QStringLiteral("usage: unpack PACK FOLDER, or pack FOLDER PACK"));
    const QString from = QFile::decodeName(argv[2]);
    const QString to = QFile::decodeName(argv[3]);
    QString reason;
    const bool packs = command == "pack";
    const auto pack =
        packs ? InputPack::fromFolder(from, &reason) : InputPack::fromFile(from, &reason);
    if (!pack)
        return failed(reason);
    return written(packs ? pack->writeFile(to) : pack->writeFolder(to), to);
}
