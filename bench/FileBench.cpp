// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <charconv>
#include <cstdio>
#include <memory>
#include <stdexcept>

#include "acquisition/RecordingLines.h"
#include "files/CodeFile.h"
#include "files/RecordingFile.h"

// Loading and saving the largest block, beside the bare conversion of the same bytes in memory and
// beside that with plain input and output of a file. Saving a file as a whole means that it is on
// the disk before it takes its name; the plain way beside it does the same.

namespace vx3260::bench {
namespace {

constexpr int decimal = static_cast<int>(Notation::Decimal);
constexpr int hexadecimal = static_cast<int>(Notation::Hexadecimal);
constexpr std::size_t longestLine = 12;

using Codes = std::vector<std::int32_t>;

/// Around mid-scale, as noise is; seven decimal digits or six hexadecimal ones.
Codes LargestBlock() {
    Codes codes(MaxCodesInBlock);
    for (std::size_t i = 0; i < codes.size(); ++i) {
        codes[i] = 8388608 + static_cast<std::int32_t>(i * 7919 % 401) - 200;
    }
    return codes;
}

/// A file with the block in the notation that the benchmark is run for.
struct BlockFile {
    explicit BlockFile(const benchmark::State& state)
        : notation(static_cast<Notation>(state.range(0))) {
        CodeWriter(path).Write(FormatCodes(codes, notation));
    }

    int Base() const { return notation == Notation::Decimal ? 10 : 16; }

    QTemporaryDir folder;
    Notation notation;
    Codes codes = LargestBlock();
    std::string path = folder.filePath(QStringLiteral("block.dat")).toStdString();
    std::string bytes = FormatCodes(codes, notation);
};

/// One code a line; nothing is checked.
void ParseLoop(const std::string& bytes, int base, Codes& codes) {
    const char* position = bytes.data();
    const char* const end = position + bytes.size();
    for (std::int32_t& code : codes) {
        position += *position == ' ' ? 1 : 0;
        position = std::from_chars(position, end, code, base).ptr + 1;
    }
    benchmark::DoNotOptimize(codes.data());
    benchmark::ClobberMemory();
}

/// One code a line, with lower-case digits.
std::size_t FormatLoop(const Codes& codes, int base, std::string& bytes) {
    char* position = bytes.data();
    char* const end = position + bytes.size();
    for (const std::int32_t code : codes) {
        *position = ' ';
        position = std::to_chars(position + (base == 10 ? 1 : 0), end, code, base).ptr;
        *position++ = '\n';
    }
    benchmark::ClobberMemory();
    return static_cast<std::size_t>(position - bytes.data());
}

void Check(bool well) {
    if (!well) {
        throw std::runtime_error("a file could not be read or written");
    }
}

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

std::unique_ptr<std::FILE, CloseFile> Open(const std::string& path, const char* mode) {
    std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), mode));
    Check(file != nullptr);
    return file;
}

void Load(benchmark::State& state) {
    const BlockFile file(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(LoadCodes(file.path, file.notation));
    }
}

void LoadBare(benchmark::State& state) {
    const BlockFile file(state);
    Codes codes(MaxCodesInBlock);
    for (auto _ : state) {
        ParseLoop(file.bytes, file.Base(), codes);
    }
    Check(codes == file.codes);
}

void LoadPlain(benchmark::State& state) {
    const BlockFile file(state);
    for (auto _ : state) {
        std::string bytes(file.bytes.size(), '\0');
        const auto opened = Open(file.path, "rb");
        Check(std::fread(bytes.data(), 1, bytes.size(), opened.get()) == bytes.size());
        Codes codes(MaxCodesInBlock);
        ParseLoop(bytes, file.Base(), codes);
    }
}

void Format(benchmark::State& state) {
    const BlockFile file(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(FormatCodes(file.codes, file.notation));
    }
}

void FormatBare(benchmark::State& state) {
    const BlockFile file(state);
    std::string bytes(MaxCodesInBlock * longestLine, '\0');
    for (auto _ : state) {
        benchmark::DoNotOptimize(FormatLoop(file.codes, file.Base(), bytes));
    }
}

void Save(benchmark::State& state) {
    const BlockFile file(state);
    for (auto _ : state) {
        CodeWriter(file.path).Write(FormatCodes(file.codes, file.notation));
    }
}

void SavePlain(benchmark::State& state) {
    const BlockFile file(state);
    const std::string temporary = file.path + ".new";
    for (auto _ : state) {
        std::string bytes(MaxCodesInBlock * longestLine, '\0');
        bytes.resize(FormatLoop(file.codes, file.Base(), bytes));
        const auto opened = Open(temporary, "wb");
        Check(std::fwrite(bytes.data(), 1, bytes.size(), opened.get()) == bytes.size());
        Check(std::fflush(opened.get()) == 0 && fsync(fileno(opened.get())) == 0);
        Check(std::rename(temporary.c_str(), file.path.c_str()) == 0);
    }
}

/// From codes to a file: items a second are lines a second.
void RecordLines(benchmark::State& state) {
    const QTemporaryDir folder;
    const RecordingLines lines({MainConditions(2.5F, 7, Polarity::Bipolar)}, std::nullopt);
    RecordingFile file({folder.filePath(QStringLiteral("record.csv")).toStdString()});
    file.Begin({}, lines.CodeColumns(), "");
    RecordingMoment moment{UtcTime(std::chrono::milliseconds(1700000000000)), 0};
    for (auto _ : state) {
        moment.utc += std::chrono::milliseconds(10);
        moment.elapsed += 0.01;
        file.Line(lines.Line(moment, {Converter::Main, 8388608}));
        file.Tick();
    }
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(RecordLines)->UseRealTime();

void InBothNotations(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("hex")->Arg(decimal)->Arg(hexadecimal)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(Load)->Name("Load32767Codes")->Apply(InBothNotations);
BENCHMARK(LoadBare)->Name("Load32767CodesBare")->Apply(InBothNotations);
BENCHMARK(LoadPlain)->Name("Load32767CodesPlainFile")->Apply(InBothNotations);
BENCHMARK(Format)->Name("Format32767Codes")->Apply(InBothNotations);
BENCHMARK(FormatBare)->Name("Format32767CodesBare")->Apply(InBothNotations);
BENCHMARK(Save)->Name("Save32767Codes")->Apply(InBothNotations)->UseRealTime();
BENCHMARK(SavePlain)->Name("Save32767CodesPlainFile")->Apply(InBothNotations)->UseRealTime();

}  // namespace
}  // namespace vx3260::bench
