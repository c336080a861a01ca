// Base64 beside OpenSSL's block codec, Qt's and GLib's, and digests beside OpenSSL's one-call
// digest, Qt's and GLib's, on a megabyte without end marks.

#include "Report.h"

#include <KTUtility/NSData_KTAdditions>
#include <KTUtility/NSData_KTArchives>

#include <QCryptographicHash>

#include <benchmark/benchmark.h>

#include <glib.h>
#include <openssl/evp.h>

#include <memory>
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

template<const EVP_MD *(*Algorithm)()>
void peerDigest(benchmark::State &state)
{
    std::vector<unsigned char> digest(EVP_MAX_MD_SIZE);
    unsigned length = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            EVP_Digest(bytes(), Size, digest.data(), &length, Algorithm(), nullptr));
}

// --- Qt and GLib --------------------------------------------------------------------------------

struct GFree
{
    void operator()(void *memory) const { g_free(memory); }
};
template<typename Value>
using GOwned = std::unique_ptr<Value, GFree>;

void peerQtEncode(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(QString::fromLatin1(data().toBase64()));
}

void peerQtDecode(benchmark::State &state)
{
    const QString text = QString::fromLatin1(data().toBase64());
    for (auto _ : state)
        benchmark::DoNotOptimize(QByteArray::fromBase64(text.toLatin1()));
}

void peerQtDigest(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(QCryptographicHash::hash(data(), QCryptographicHash::Sha1));
}

void peerGLibEncode(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(GOwned<gchar>(g_base64_encode(bytes(), Size)));
}

void peerGLibDecode(benchmark::State &state)
{
    const QByteArray text = data().toBase64();
    for (auto _ : state) {
        gsize size = 0;
        benchmark::DoNotOptimize(GOwned<guchar>(g_base64_decode(text.constData(), &size)));
    }
}

void peerGLibDigest(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(
            GOwned<gchar>(g_compute_checksum_for_data(G_CHECKSUM_SHA1, bytes(), Size)));
}

// --- Ours ---------------------------------------------------------------------------------------

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

template<auto Digest>
void digest(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(Digest(data()));
}

void archive(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(KTAdditions::archiveToString(data()));
}

void unarchive(benchmark::State &state)
{
    const QString text = KTAdditions::archiveToString(data());
    for (auto _ : state)
        benchmark::DoNotOptimize(KTAdditions::initWithStringArchive(text));
}

/// What an archive has inside of it, as a text.
void peerText(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(QString::fromLatin1(data().toBase64()));
}

void peerFromText(benchmark::State &state)
{
    const QString text = QString::fromLatin1(data().toBase64());
    for (auto _ : state)
        benchmark::DoNotOptimize(QByteArray::fromBase64(text.toLatin1()));
}

BENCHMARK(archive)->Name("Encodings/archive from data, 1 MB");
BENCHMARK(unarchive)->Name("Encodings/data from archive, 1 MB");
BENCHMARK(peerText)->Name("Encodings/peer: text of Qt's base64");
BENCHMARK(peerFromText)->Name("Encodings/peer: Qt's base64 of a text");
BENCHMARK(peerEncode)->Name("Encodings/peer: EVP_EncodeBlock");
BENCHMARK(peerQtEncode)->Name("Encodings/peer: QByteArray::toBase64");
BENCHMARK(peerGLibEncode)->Name("Encodings/peer: g_base64_encode");
BENCHMARK(peerDecode)->Name("Encodings/peer: EVP_DecodeBlock");
BENCHMARK(peerQtDecode)->Name("Encodings/peer: QByteArray::fromBase64");
BENCHMARK(peerGLibDecode)->Name("Encodings/peer: g_base64_decode");
BENCHMARK(peerDigest<EVP_sha1>)->Name("Encodings/peer: EVP_Digest of SHA-1");
BENCHMARK(peerDigest<EVP_md5>)->Name("Encodings/peer: EVP_Digest of MD5");
BENCHMARK(peerQtDigest)->Name("Encodings/peer: QCryptographicHash");
BENCHMARK(peerGLibDigest)->Name("Encodings/peer: g_compute_checksum_for_data");
BENCHMARK(encode)->Name("Encodings/base64 from data, 1 MB");
BENCHMARK(decode)->Name("Encodings/data from base64, 1 MB");
BENCHMARK(digest<KTAdditions::sha1Digest>)->Name("Encodings/SHA-1, 1 MB");
BENCHMARK(digest<KTAdditions::md5Digest>)->Name("Encodings/MD5, 1 MB");

constexpr char Encode[] = "Encodings/base64 from data, 1 MB";
constexpr char Decode[] = "Encodings/data from base64, 1 MB";
constexpr char SHA1[] = "Encodings/SHA-1, 1 MB";
const bool isRegistered =
    compareWith(Encode, "Encodings/peer: EVP_EncodeBlock", 1) &&
    compareWith(Encode, "Encodings/peer: QByteArray::toBase64", 1) &&
    compareWith(Encode, "Encodings/peer: g_base64_encode", 1) &&
    compareWith(Decode, "Encodings/peer: EVP_DecodeBlock", 1) &&
    compareWith(Decode, "Encodings/peer: QByteArray::fromBase64", 1) &&
    compareWith(Decode, "Encodings/peer: g_base64_decode", 1) &&
    compareWith(SHA1, "Encodings/peer: EVP_Digest of SHA-1", 1.02) &&
    compareWith(SHA1, "Encodings/peer: QCryptographicHash", 1) &&
    compareWith(SHA1, "Encodings/peer: g_compute_checksum_for_data", 1) &&
    compareWith("Encodings/archive from data, 1 MB", "Encodings/peer: text of Qt's base64", 3) &&
    compareWith("Encodings/data from archive, 1 MB", "Encodings/peer: Qt's base64 of a text", 3) &&
    compareWith("Encodings/MD5, 1 MB", "Encodings/peer: EVP_Digest of MD5", 1.02);
} // namespace
