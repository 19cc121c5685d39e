#include "wave.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>

#include "paths.h"

namespace plxclip {

namespace {

constexpr std::uint64_t mostPeaks = 400;
constexpr std::uint16_t formatPcm = 1;
constexpr std::uint16_t formatFloat = 3;
constexpr std::uint16_t formatExtensible = 0xFFFE; // the format proper comes later in the chunk

// Numbers in wave files have their lowest byte first.
std::uint64_t numberAt(const char* bytes, int size)
{
    std::uint64_t number = 0;
    for (int i = size; i-- > 0;) {
        number = number << 8 | static_cast<unsigned char>(bytes[i]);
    }
    return number;
}

template <int size>
double pcmAt(const char* bytes)
{
    constexpr int unused = 32 - 8 * size;
    const auto bits = static_cast<std::uint32_t>(numberAt(bytes, size) << unused);
    return static_cast<std::int32_t>(bits) / 2147483648.0;
}

double floatAt(const char* bytes)
{
    return std::bit_cast<float>(static_cast<std::uint32_t>(numberAt(bytes, 4)));
}

double doubleAt(const char* bytes)
{
    return std::bit_cast<double>(numberAt(bytes, 8));
}

using SampleAt = double (*)(const char*);

struct Format {
    std::uint16_t kind = 0;
    std::uint16_t channels = 0;
    std::uint32_t rate = 0;
    std::uint16_t bits = 0;

    std::uint32_t sampleSize() const { return bits / 8U; }
    std::uint32_t frameSize() const { return sampleSize() * channels; }
};

SampleAt sampleReader(const Format& format)
{
    if (format.kind == formatFloat) {
        return format.bits == 32 ? floatAt : format.bits == 64 ? doubleAt : nullptr;
    }
    if (format.kind != formatPcm) {
        return nullptr;
    }
    return format.bits == 16   ? pcmAt<2>
           : format.bits == 24 ? pcmAt<3>
           : format.bits == 32 ? pcmAt<4>
                               : nullptr;
}

struct Data {
    Format format;
    std::uint64_t place = 0;
    std::uint64_t size = 0;
};

class Chunks {
public:
    explicit Chunks(const std::string& path) : file(pathOf(path), std::ios::binary)
    {
        std::error_code error;
        length = std::filesystem::file_size(pathOf(path), error);
        length = error ? 0 : length;
    }

    bool isWave()
    {
        std::array<char, 12> head = {};
        return read(0, head.data(), head.size()) && std::memcmp(head.data(), "RIFF", 4) == 0 &&
               std::memcmp(&head[8], "WAVE", 4) == 0;
    }

    // The samples, and how they are stored. No value when one of the two is missing.
    std::optional<Data> find()
    {
        Data data;
        bool hasFormat = false;
        std::array<char, 8> head = {};
        for (std::uint64_t place = 12; read(place, head.data(), head.size());) {
            const std::uint64_t size = numberAt(&head[4], 4);
            const std::uint64_t rest = length - place - 8;
            if (std::memcmp(head.data(), "fmt ", 4) == 0) {
                hasFormat = readFormat(place + 8, size, data.format);
            } else if (std::memcmp(head.data(), "data", 4) == 0) {
                data.place = place + 8;
                data.size = std::min(size, rest); // a file may be cut off
                return hasFormat ? std::optional(data) : std::nullopt;
            }
            place += 8 + size + size % 2;
        }
        return std::nullopt;
    }

    bool read(std::uint64_t place, char* bytes, std::size_t size)
    {
        if (place + size > length) {
            return false;
        }
        file.seekg(static_cast<std::streamoff>(place));
        file.read(bytes, static_cast<std::streamsize>(size));
        return file.good();
    }

private:
    bool readFormat(std::uint64_t place, std::uint64_t size, Format& format)
    {
        std::array<char, 26> bytes = {};
        if (size < 16 || !read(place, bytes.data(), std::min<std::uint64_t>(size, bytes.size()))) {
            return false;
        }
        format.kind = static_cast<std::uint16_t>(numberAt(bytes.data(), 2));
        format.channels = static_cast<std::uint16_t>(numberAt(&bytes[2], 2));
        format.rate = static_cast<std::uint32_t>(numberAt(&bytes[4], 4));
        format.bits = static_cast<std::uint16_t>(numberAt(&bytes[14], 2));
        if (format.kind == formatExtensible) {
            format.kind = static_cast<std::uint16_t>(numberAt(&bytes[24], 2));
        }
        return true;
    }

    std::ifstream file;
    std::uint64_t length = 0;
};

// Some samples of a float file may be beyond the range, or not numbers.
double inRange(double sample)
{
    return std::isnan(sample) ? 0 : std::clamp(sample, -1.0, 1.0);
}

class Peaks {
public:
    explicit Peaks(std::uint64_t number)
        : frames(number), low(std::min(number, mostPeaks), 1), high(low.size(), -1)
    {
    }

    void add(std::uint64_t frame, double sample)
    {
        const std::uint64_t piece = frame * low.size() / frames;
        low[piece] = std::min(low[piece], sample);
        high[piece] = std::max(high[piece], sample);
    }

    std::vector<std::int32_t> values() const
    {
        std::vector<std::int32_t> values;
        for (std::size_t i = 0; i < low.size(); ++i) {
            values.push_back(static_cast<std::int32_t>(std::lround(low[i] * 127)));
            values.push_back(static_cast<std::int32_t>(std::lround(high[i] * 127)));
        }
        return values;
    }

private:
    std::uint64_t frames;
    std::vector<double> low;
    std::vector<double> high;
};

bool readPeaks(Chunks& chunks, const Data& data, SampleAt sampleAt, Wave& wave)
{
    constexpr std::uint64_t framesAtOnce = 4096;
    const std::uint32_t frameSize = data.format.frameSize();
    const std::uint64_t frames = data.size / frameSize;
    Peaks peaks(frames);
    std::vector<char> block(framesAtOnce * frameSize);
    for (std::uint64_t frame = 0; frame < frames; frame += framesAtOnce) {
        const std::uint64_t count = std::min(framesAtOnce, frames - frame);
        if (!chunks.read(data.place + frame * frameSize, block.data(), count * frameSize)) {
            return false;
        }
        for (std::uint64_t i = 0; i < count * data.format.channels; ++i) {
            const double sample = sampleAt(&block[i * data.format.sampleSize()]);
            peaks.add(frame + i / data.format.channels, inRange(sample));
        }
    }
    wave.peaks = peaks.values();
    wave.seconds = static_cast<float>(static_cast<double>(frames) / data.format.rate);
    return true;
}

Wave waveWithout(const char* problem)
{
    Wave wave;
    wave.problem = problem;
    return wave;
}

} // namespace

Wave readWave(const std::string& path)
{
    Chunks chunks(path);
    if (!chunks.isWave()) {
        return waveWithout("The file is no wave file, so there is no waveform.");
    }
    const std::optional<Data> data = chunks.find();
    if (!data) {
        return waveWithout("The wave file is damaged, so there is no waveform.");
    }
    const SampleAt sampleAt = sampleReader(data->format);
    if (sampleAt == nullptr || data->format.channels == 0 || data->format.rate == 0) {
        return waveWithout("Only waveforms of PCM with 16, 24 or 32 bits and of floats are drawn.");
    }
    Wave wave;
    wave.rate = data->format.rate;
    wave.channels = data->format.channels;
    return readPeaks(chunks, *data, sampleAt, wave)
               ? wave
               : waveWithout("The wave file cannot be read, so there is no waveform.");
}

} // namespace plxclip
