#include "recorder/wav_encoder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>

namespace melvane {

namespace {

constexpr std::size_t headerSize = 44, sampleSize = 2;  // bytes

EncoderFailure failureOf(EncoderError error) { return {"Lame", errorText(error)}; }

}  // namespace

/// One encoding, with what it holds on to.
struct WavEncoder::Job {
    explicit Job(EncoderStreams& streamsToUse) : streams(streamsToUse) {}
    ~Job() { streams.beCloseStream(handle); }
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;

    /// Blocks for a chunk and for what becomes of it.
    void makeRoom() {
        samples.assign(sizes.samples, 0);
        output.assign(sizes.outputBytes, 0);
    }
    std::span<unsigned char> input(std::size_t bytes) {
        return {reinterpret_cast<unsigned char*>(samples.data()),
                std::min(bytes, samples.size() * sampleSize)};
    }

    bool openSource(const std::string& source, std::uint64_t size) {
        total = size;
        return reading.OpenFile(source);
    }
    /// False when the file cannot be read, or has become shorter. Past its end there is nothing to read.
    bool read(std::uint64_t bytes) {
        const std::uint64_t wanted = std::min(taken + bytes, total);
        const bool isDone = reading.ReadBytes(input(bytes));
        taken += reading.bytesRead();
        return isDone && taken >= wanted;
    }

    void write(std::uint32_t bytes) {
        if (bytes > 0 && !writing.WriteBytes(std::span(output).first(bytes))) isWritten = false;
    }
    /// What the encoder still holds; then all of it goes to the disk.
    void flush() {
        std::uint32_t written = 0;
        streams.beDeinitStream(handle, output, written);
        write(written);
        if (!writing.FlushBuffers()) isWritten = false;
    }

    EncoderStreams& streams;
    EncoderStreams::Sizes sizes;
    std::uint32_t handle = 0;
    std::vector<std::int16_t> samples;
    std::vector<unsigned char> output;
    clsFileIo reading, writing;
    std::uint64_t total = 0, taken = 0;  ///< bytes of the source
    bool isWritten = true, isRead = true;
};

std::string WavEncoder::progressText(double done, double total) {
    const long long hundredths = std::llround(done / total * 10000);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%02lld.%02lld%%", hundredths / 100, hundredths % 100);
    return text.data();
}

WavEncoder::Result WavEncoder::encode(const std::string& source, const std::string& target,
                                      const BE_CONFIG& config) {
    Job job(streams_);
    const EncoderError refused = streams_.beInitStream(config, job.sizes, job.handle);
    if (refused != EncoderError::none) return {false, failureOf(refused)};
    std::error_code failed;
    const auto total = std::filesystem::file_size(source, failed);
    if (failed) return {.isWhole = true, .isRead = false};
    if (std::filesystem::exists(target, failed)) return {.isWritten = false};
    job.makeRoom();
    if (!job.openSource(source, total) || !job.read(headerSize)) return {.isWhole = true, .isRead = false};
    job.writing.OpenFile(target);
    const EncoderError error = encodeChunks(job);
    if (error != EncoderError::none) return {false, failureOf(error)};
    job.flush();
    return {true, {}, job.isWritten, job.isRead};
}

EncoderError WavEncoder::encodeChunks(Job& job) {
    for (std::uint64_t done = 0; done < job.total;) {
        const auto bytes = std::min<std::uint64_t>(job.samples.size() * sampleSize, job.total - done);
        job.isRead = job.read(bytes);
        if (!job.isRead) break;  // what was made up to here is a whole stream
        done += bytes;
        std::uint32_t written = 0;
        const auto error = streams_.beEncodeChunk(
            job.handle, std::span(job.samples).first(bytes / sampleSize), job.output, written);
        if (error != EncoderError::none) return error;
        job.write(written);
        studio_.Record.Status.set(progressText(static_cast<double>(done), static_cast<double>(job.total)));
        if (isCancelled()) break;
        loop_.turn();
    }
    return EncoderError::none;
}

bool WavEncoder::isCancelled() const { return studio_.recorder.EncodeCancel || loop_.ended(); }

}  // namespace melvane
