// Speed of the block CRC, beside that of Boost over the same words, and of the frame parser.

#include "link/CRCService.h"
#include "link/FrameParser.h"
#include "link/kovoPacketManager.h"

#include <benchmark/benchmark.h>
#include <boost/crc.hpp>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

using BoostCrc = boost::crc_optimal<32, 0x04C11DB7, 0xFFFFFFFF, 0, false, false>;

static std::vector<unsigned char> randomBytes(std::size_t size)
{
    std::mt19937 random(1);
    std::vector<unsigned char> bytes(size);
    for (unsigned char &byte : bytes)
        byte = static_cast<unsigned char>(random());
    return bytes;
}

// Boost works on bytes: in reversed groups of four they are the same words.
static std::vector<unsigned char> reversedGroups(std::vector<unsigned char> bytes)
{
    for (auto group = bytes.begin(); group != bytes.end(); group += 4)
        std::reverse(group, group + 4);
    return bytes;
}

static unsigned int ownCrc(const std::vector<unsigned char> &bytes)
{
    return CRCService(bytes.data(), static_cast<unsigned int>(bytes.size()), CRCService::Compute)
        .getCRC();
}

static unsigned int boostCrc(const std::vector<unsigned char> &bytes)
{
    BoostCrc crc;
    crc.process_bytes(bytes.data(), bytes.size());
    return crc.checksum();
}

static void crcOwn(benchmark::State &state)
{
    auto bytes = randomBytes(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(bytes.data());
        benchmark::ClobberMemory();
        benchmark::DoNotOptimize(ownCrc(bytes));
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

static void crcBoost(benchmark::State &state)
{
    auto bytes = reversedGroups(randomBytes(static_cast<std::size_t>(state.range(0))));
    for (auto _ : state) {
        benchmark::DoNotOptimize(bytes.data());
        benchmark::ClobberMemory();
        benchmark::DoNotOptimize(boostCrc(bytes));
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

// range(0): payload of every frame, range(1): size of the chunks that the stream comes in. Counted
// are the bytes on the line.
static void parser(benchmark::State &state)
{
    const auto payload = randomBytes(static_cast<std::size_t>(state.range(0)));
    kovoPacketManager builder(nullptr);
    QByteArray frame;
    builder.prepareMessage(payload.data(), payload.size(), 1, 1, COMIO_CMD_SET_CONFIG, frame);
    const int chunkSize = static_cast<int>(state.range(1));
    // Few enough for the chunks to stay in the cache, as bytes fresh from the port are.
    const int frameCount = chunkSize == 1 ? 8 : 64;
    const QByteArray stream = frame.repeated(frameCount);
    std::vector<QByteArray> chunks;
    for (int i = 0; i < stream.size(); i += chunkSize)
        chunks.push_back(stream.mid(i, chunkSize));

    qint64 messages = 0;
    const FrameParser::Handler handler = [&](ComioInterfaceCommand_TypeDef command,
                                             const QVector<uint8_t> &data) {
        messages += command == COMIO_CMD_SET_CONFIG;
        benchmark::DoNotOptimize(data.constData());
    };
    FrameParser frameParser;
    for (auto _ : state)
        for (const QByteArray &chunk : chunks)
            frameParser.feed(chunk, handler);
    if (messages != static_cast<qint64>(state.iterations()) * frameCount)
        state.SkipWithError("messages were lost");
    state.SetBytesProcessed(state.iterations() * stream.size());
}

BENCHMARK(crcOwn)->Arg(12)->Arg(236)->Arg(1020);
BENCHMARK(crcBoost)->Arg(12)->Arg(236)->Arg(1020);
BENCHMARK(parser)
    ->ArgNames({"payload", "chunk"})
    ->ArgsProduct({{32, 223, 1004}, {1, 64, 512, 4096}});

int main(int argc, char **argv)
{
    for (std::size_t size = 0; size <= 1024; size += 4) {
        const auto bytes = randomBytes(size);
        if (ownCrc(bytes) != boostCrc(reversedGroups(bytes))) {
            std::fprintf(stderr, "the two CRCs differ at %zu bytes\n", size);
            return EXIT_FAILURE;
        }
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return EXIT_FAILURE;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return EXIT_SUCCESS;
}
