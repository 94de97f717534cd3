// Reading the IPTC data of 1 000 pictures of about 150 KB, each holding its IPTC block in an
// APP13 segment right after the JFIF header, as agencies send them. BM_ReadIptc gives the
// time per picture of the reader; BM_ExiftoolIptc times `exiftool -IPTC:all` over the same
// folder in the same run, per picture, and the ratio of the two.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "attachments/iptc_reader.h"

namespace {

namespace fs = std::filesystem;

constexpr int kPictureCount = 1000;
constexpr std::size_t kImageDataBytes = 150'000;

std::string BigEndian(std::size_t value, int bytes) {
    std::string out;
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
        out += char((value >> shift) & 0xFF);
    return out;
}

std::string Segment(unsigned char marker, std::string_view body) {
    return std::string{'\xFF', char(marker)} + BigEndian(body.size() + 2, 2) + std::string(body);
}

std::string Record(int record, int dataset, std::string_view text) {
    return std::string{'\x1C', char(record), char(dataset)} + BigEndian(text.size(), 2) +
           std::string(text);
}

// The IPTC block of picture `number`, in Windows-1252: one picture in four declares UTF-8.
std::string IptcBlock(int number) {
    const bool utf8 = number % 4 == 0;
    const std::string city = utf8 ? "Z\xC3\xBCrich" : "Z\xFCrich";
    std::string records = Record(1, 0, std::string("\0\4", 2));
    if (utf8) records += Record(1, 90, "\x1B%G");
    records += Record(2, 0, std::string("\0\4", 2)) +
               Record(2, 5, "Picture " + std::to_string(number)) + Record(2, 80, "Ann Lee") +
               Record(2, 90, city) + Record(2, 105, "Boats come home early") +
               Record(2, 110, "Northbay Courier") +
               Record(2, 120,
                      "Fishing boats return to the harbour at dawn, " + city +
                          ", on the first morning of the herring season.");
    for (const char* keyword : {"harbour", "fishing", "herring", "boats", "dawn"})
        records += Record(2, 25, keyword);
    return records;
}

std::string Picture(int number, std::mt19937& random) {
    const std::string records = IptcBlock(number);
    std::string resource = "8BIM\x04\x04" + std::string(2, '\0') + BigEndian(records.size(), 4) +
                           records + std::string(records.size() % 2, '\0');
    std::string bytes = "\xFF\xD8";
    bytes += Segment(0xE0, std::string("JFIF\0\1\1\0\0\1\0\1\0\0", 14));
    bytes += Segment(0xED, std::string("Photoshop 3.0\0", 14) + resource);
    bytes += Segment(0xDB, std::string(1, '\0') + std::string(64, '\x10'));
    bytes += Segment(
        0xC0, std::string("\x08\x03\x20\x04\x00\x03\x01\x22\x00\x02\x11\x01\x03\x11\x01", 15));
    bytes += Segment(0xC4, std::string(1, '\0') + std::string(16, '\0'));
    bytes += Segment(0xDA, std::string("\x03\x01\x00\x02\x11\x03\x11\x00\x3F\x00", 10));
    // Entropy-coded data: a 0xFF byte is followed by a stuffed 0x00, as in a real picture.
    std::uniform_int_distribution<int> byte(0, 255);
    for (std::size_t index = 0; index < kImageDataBytes; ++index) {
        bytes += char(byte(random));
        if (bytes.back() == '\xFF') bytes += '\0';
    }
    return bytes + "\xFF\xD9";
}

// The folder of pictures, made on first use and removed at the end of the run.
class PictureFolder {
  public:
    PictureFolder()
        : path_(fs::temp_directory_path() / ("tessarin-bench-iptc-" + std::to_string(getpid()))) {
        fs::create_directories(path_);
        std::mt19937 random(7);
        for (int number = 0; number < kPictureCount; ++number) {
            files_.push_back(path_ / ("picture-" + std::to_string(number) + ".jpg"));
            std::ofstream(files_.back(), std::ios::binary) << Picture(number, random);
        }
    }
    ~PictureFolder() { fs::remove_all(path_); }
    PictureFolder(const PictureFolder&) = delete;
    PictureFolder& operator=(const PictureFolder&) = delete;

    const fs::path& path() const { return path_; }
    const std::vector<fs::path>& files() const { return files_; }

  private:
    fs::path path_;
    std::vector<fs::path> files_;
};

const PictureFolder& Pictures() {
    static const PictureFolder folder;
    return folder;
}

// The reader's time per picture, in microseconds, kept for the ratio of the next benchmark.
double readIptcMicroseconds = 0;

double MicrosecondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start)
        .count();
}

void BM_ReadIptc(benchmark::State& state) {
    const PictureFolder& pictures = Pictures();
    double microseconds = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        for (const fs::path& picture : pictures.files()) {
            const tessarin::IptcData data = tessarin::ReadIptc(picture);
            benchmark::DoNotOptimize(data.occurrences.front().size());
        }
        microseconds += MicrosecondsSince(start);
    }
    readIptcMicroseconds = microseconds / double(state.iterations() * kPictureCount);
    state.counters["us_per_picture"] = readIptcMicroseconds;
}
BENCHMARK(BM_ReadIptc)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_ExiftoolIptc(benchmark::State& state) {
    const PictureFolder& pictures = Pictures();
    const std::string command =
        "exiftool -q -IPTC:all '" + pictures.path().string() + "' >/dev/null 2>&1";
    double microseconds = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        if (std::system(command.c_str()) != 0) {
            state.SkipWithError("exiftool did not run (is libimage-exiftool-perl installed?)");
            return;
        }
        microseconds += MicrosecondsSince(start);
    }
    const double perPicture = microseconds / double(state.iterations() * kPictureCount);
    state.counters["us_per_picture"] = perPicture;
    if (readIptcMicroseconds > 0)
        state.counters["ratio_to_ReadIptc"] = perPicture / readIptcMicroseconds;
}
BENCHMARK(BM_ExiftoolIptc)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(2);

}  // namespace
