// Base64 beside OpenSSL's block codec, and digests beside its one-call digest, on a megabyte
// without end marks.

#include "Report.h"

#include <KTUtility/Additions/NSData_KTAdditions.h>

#include <benchmark/benchmark.h>

#include <openssl/evp.h>

#include <random>
#include <vector>

namespace {
constexpr int Size = 3 * 350'000;

const QByteArray &data()
{
    static const QByteArray made = [] {
        std::mt19937 random(1);
        QByteArray bytes(Size, Qt::Uninitialized);
        for (char &byte : bytes)
            byte = char(random() % 255);
        return bytes;
    }();
    return made;
}

const unsigned char *bytes()
{
    return reinterpret_cast<const unsigned char *>(data().constData());
}

void peerEncode(benchmark::State &state)
{
    std::vector<unsigned char> text(Size / 3 * 4 + 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(EVP_EncodeBlock(text.data(), bytes(), Size));
}

void peerDecode(benchmark::State &state)
{
    std::vector<unsigned char> text(Size / 3 * 4 + 1);
    const int length = EVP_EncodeBlock(text.data(), bytes(), Size);
    std::vector<unsigned char> decoded(Size + 3);
    for (auto _ : state)
        benchmark::DoNotOptimize(EVP_DecodeBlock(decoded.data(), text.data(), length));
}

void peerDigest(benchmark::State &state)
{
    std::vector<unsigned char> digest(EVP_MAX_MD_SIZE);
    unsigned length = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            EVP_Digest(bytes(), Size, digest.data(), &length, EVP_sha1(), nullptr));
}

void encode(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(KTAdditions::base64String(data()));
}

void decode(benchmark::State &state)
{
    const QString text = KTAdditions::base64String(data());
    for (auto _ : state)
        benchmark::DoNotOptimize(KTAdditions::initWithBase64String(text));
}

void digest(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(KTAdditions::sha1Digest(data()));
}

BENCHMARK(peerEncode)->Name("Encodings/peer: EVP_EncodeBlock, 1 MB");
BENCHMARK(peerDecode)->Name("Encodings/peer: EVP_DecodeBlock, 1 MB");
BENCHMARK(peerDigest)->Name("Encodings/peer: EVP_Digest, 1 MB");
BENCHMARK(encode)->Name("Encodings/base64 from data, 1 MB");
BENCHMARK(decode)->Name("Encodings/data from base64, 1 MB");
BENCHMARK(digest)->Name("Encodings/SHA-1, 1 MB");

const bool isRegistered =
    compareWith("Encodings/base64 from data, 1 MB", "Encodings/peer: EVP_EncodeBlock, 1 MB", 1) &&
    compareWith("Encodings/data from base64, 1 MB", "Encodings/peer: EVP_DecodeBlock, 1 MB", 1) &&
    compareWith("Encodings/SHA-1, 1 MB", "Encodings/peer: EVP_Digest, 1 MB", 1.02);
} // namespace
