// Reading and writing of recorded runs. Steps that are alike bit by bit are stored once with
// their number, since frame times and held keys hold for many steps.

#include "game/RunFile.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <span>
#include <string_view>

#include "engine/ByteReader.h"
#include "engine/ByteWriter.h"
#include "engine/Crc32.h"
#include "platform/Paths.h"
#include "platform/WholeFile.h"

namespace {

constexpr std::uint32_t magic = 0x4E555256;  // "VRUN"
constexpr std::uint16_t version = 2;
constexpr std::uint16_t versionWithoutHashes = 1;
constexpr std::size_t longestName = 255;
constexpr std::size_t blockBytes = 13;
constexpr std::uint8_t knownFlags = RunStep::Menu | RunStep::Paused | RunStep::Unsteered;
// 19 hours at 60 steps a second; a small file can't ask for more memory than for these.
constexpr std::uint32_t mostSteps = 4u << 20;
constexpr float largestView = 1e6f;

bool IsSameBits(float a, float b) {
    return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

bool IsSameStep(const RunStep& a, const RunStep& b) {
    return IsSameBits(a.dt, b.dt) && IsSameBits(a.turn, b.turn) && a.flags == b.flags;
}

bool IsGoodName(std::string_view name) {
    return !name.empty() && name.size() <= longestName &&
           std::ranges::all_of(name, [](unsigned char c) { return c >= 0x20 && c != 0x7F; });
}

bool IsGoodView(float size) {
    return size >= 1.0f && size <= largestView;
}

bool IsGoodStep(const RunStep& step) {
    return step.dt > 0.0f && step.dt <= RunStep::longest && std::isfinite(step.turn) &&
           (step.flags & ~knownFlags) == 0;
}

bool IsGoodRun(const Run& run) {
    return IsGoodName(run.level) && IsGoodView(run.viewWidth) && IsGoodView(run.viewHeight) &&
           run.steps.size() <= mostSteps && std::ranges::all_of(run.steps, IsGoodStep) &&
           (run.hashes.empty() || run.hashes.size() == run.HashCount());
}

/// One past the last of the steps from `first` on that are alike.
std::size_t EndOfBlock(const std::vector<RunStep>& steps, std::size_t first) {
    std::size_t end = first + 1;
    while (end < steps.size() && IsSameStep(steps[end], steps[first])) {
        ++end;
    }
    return end;
}

void WriteBlocks(ByteWriter& writer, const std::vector<RunStep>& steps) {
    std::size_t end = 0;
    for (std::size_t i = 0; i < steps.size(); i = end) {
        end = EndOfBlock(steps, i);
        writer.F32(steps[i].dt);
        writer.F32(steps[i].turn);
        writer.U8(steps[i].flags);
        writer.U32(static_cast<std::uint32_t>(end - i));
    }
}

/// Empty, or what is wrong.
const char* ReadBlocks(ByteReader& reader, std::uint32_t stepCount, std::vector<RunStep>& steps) {
    if (stepCount > mostSteps) {
        return "it is too long";
    }
    while (steps.size() < stepCount) {
        if (reader.Remaining() < blockBytes) {
            return "it is cut off";
        }
        const RunStep step{reader.F32(), reader.F32(), reader.U8()};
        const std::uint32_t count = reader.U32();
        if (!IsGoodStep(step)) {
            return "it holds a bad step";
        }
        if (count == 0 || count > stepCount - steps.size()) {
            return "its step counts disagree";
        }
        steps.insert(steps.end(), count, step);
    }
    return "";
}

void WriteHashes(ByteWriter& writer, const Run& run) {
    ByteWriter part;
    part.U32(run.settings);
    part.U16(run.hashKind);
    for (const std::uint64_t hash : run.hashes) {
        part.U32(static_cast<std::uint32_t>(hash));
        part.U32(static_cast<std::uint32_t>(hash >> 32));
    }
    writer.Bytes(part.Block());
    writer.U32(Crc32(part.Block()));
}

/// Empty, or what is wrong.
const char* ReadHashes(ByteReader& reader, Run& run) {
    const std::size_t count = run.HashCount();
    const auto bytes = reader.Bytes(6 + 8 * count);
    const std::uint32_t checksum = reader.U32();
    if (reader.HasFailed()) {
        return "it is cut off";
    }
    if (Crc32(bytes) != checksum) {
        return "its state hashes are damaged";
    }
    ByteReader part(bytes);
    run.settings = part.U32();
    run.hashKind = part.U16();
    run.hashes.resize(count);
    for (std::uint64_t& hash : run.hashes) {
        const std::uint64_t low = part.U32();
        hash = low | std::uint64_t{part.U32()} << 32;
    }
    return "";
}

/// All but the hashes. Empty, or what is wrong.
const char* ReadPlay(ByteReader& reader, Run& run) {
    const auto name = reader.Bytes(reader.U8());
    run.level.assign(reinterpret_cast<const char*>(name.data()), name.size());
    run.checksum = reader.U32();
    run.randomState = reader.U32();
    run.viewWidth = reader.F32();
    run.viewHeight = reader.F32();
    const std::uint32_t stepCount = reader.U32();
    if (reader.HasFailed()) {
        return "it is cut off";
    }
    if (!IsGoodName(run.level)) {
        return "it holds a bad level name";
    }
    if (!IsGoodView(run.viewWidth) || !IsGoodView(run.viewHeight)) {
        return "it holds a bad view";
    }
    return ReadBlocks(reader, stepCount, run.steps);
}

/// Empty, or what is wrong.
std::string Parse(ByteReader& reader, Run& run) {
    if (reader.U32() != magic) {
        return "it isn't a recorded run";
    }
    const std::uint16_t found = reader.U16();
    if (!reader.HasFailed() && found != version && found != versionWithoutHashes) {
        return "it is of another version";
    }
    std::string reason = ReadPlay(reader, run);
    if (reason.empty() && found == version) {
        reason = ReadHashes(reader, run);
    }
    if (reason.empty() && reader.Remaining() != 0) {
        reason = "something follows its end";
    }
    return reason;
}

}  // namespace

bool WriteRun(const std::string& path, const Run& run) {
    if (!IsGoodRun(run)) {
        return false;
    }
    ByteWriter writer;
    writer.U32(magic);
    writer.U16(run.hashes.empty() ? versionWithoutHashes : version);
    writer.U8(static_cast<std::uint8_t>(run.level.size()));
    writer.Bytes(std::as_bytes(std::span(run.level)));
    writer.U32(run.checksum);
    writer.U32(run.randomState);
    writer.F32(run.viewWidth);
    writer.F32(run.viewHeight);
    writer.U32(static_cast<std::uint32_t>(run.steps.size()));
    WriteBlocks(writer, run.steps);
    if (!run.hashes.empty()) {
        WriteHashes(writer, run);
    }
    return Platform::WriteWholeFile(path, writer.Block().data(), writer.Block().size());
}

std::optional<Run> ReadRun(const std::string& path, std::string& reason) {
    const auto bytes = Platform::ReadWholeFile(path);
    if (!bytes) {
        reason = "it can't be read";
        return std::nullopt;
    }
    return ParseRun(*bytes, reason);
}

std::optional<Run> ParseRun(std::span<const std::byte> bytes, std::string& reason) {
    ByteReader reader(bytes);
    Run run;
    reason = Parse(reader, run);
    return reason.empty() ? std::optional(std::move(run)) : std::nullopt;
}

std::optional<std::uint32_t> LevelChecksum(const std::string& levelName,
                                           Platform::NameSource source) {
    const auto path = Platform::FindFile(levelName, source);
    const auto bytes = path ? Platform::ReadWholeFile(*path) : std::nullopt;
    return bytes ? std::optional(Crc32(*bytes)) : std::nullopt;
}

bool FitsLevel(const Run& run, std::string& reason) {
    const auto checksum = LevelChecksum(run.level, Platform::NameSource::Data);
    if (!checksum) {
        reason = "its level '" + run.level + "' is missing";
    } else if (*checksum != run.checksum) {
        reason = "its level '" + run.level + "' has changed since";
    } else {
        return true;
    }
    return false;
}
