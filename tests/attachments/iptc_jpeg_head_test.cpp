#include "attachments/iptc_jpeg_head.h"

#include <gtest/gtest.h>

#include "attachments/jpeg_bytes.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using namespace testing;

const std::string kApp0 = Segment(0xE0, std::string("JFIF\0\1\1\0\0\1\0\1\0\0", 14));
const std::string kIptc =
    App13(IptcResource(IptcRecord(25, "sea") + IptcRecord(25, "boats") + IptcRecord(120, "Dawn")));
const std::string kLateIptc = App13(IptcResource(IptcRecord(105, "late")));

// Image data up to offset `end` of the file, then an APP13 segment: its marker straddles or
// follows the 64 KiB stretches in which the rest of a file is looked through.
std::string App13At(std::size_t end) {
    std::string bytes = "\xFF\xD8" + kIptc + ImageData(end);
    bytes.resize(end, '\0');
    return bytes + kLateIptc + "\xFF\xD9";
}

// The reading from the segments before the image data gives exactly what the scan of the
// whole file gives, or leaves the file to that scan.
void ExpectSameAsWholeScan(const TempDir& folder, const std::string& bytes, const char* what,
                           bool readFromHead) {
    const std::filesystem::path file = folder.Write("picture.jpg", bytes);
    const IptcData whole = ReadIptcBytes(bytes);
    const std::optional<IptcData> head = ReadIptcFromJpegHead(file);
    EXPECT_EQ(head.has_value(), readFromHead) << what;
    if (head) {
        EXPECT_EQ(*head, whole) << what;
    }
    EXPECT_EQ(ReadIptc(file), whole) << what;
}

TEST(IptcJpegHead, GivesTheWholeScansResultOrLeavesTheFileToIt) {
    struct Case {
        const char* what;
        std::string bytes;
        bool readFromHead;
    };
    const std::string image = ImageData(200'000);
    const Case cases[] = {
        {"APP13 before the image data", Jpeg({kApp0, kIptc, image}), true},
        {"not a JPEG", "PK\3\4" + kIptc, true},
        {"fill bytes before a marker", Jpeg({"\xFF\xFF", kIptc, image}), true},
        {"segments longer than a chunk",
         Jpeg({Segment(0xE1, std::string(40'000, 'x')), Segment(0xE2, std::string(40'000, 'y')),
               kIptc, image}),
         true},
        {"an APP13 marker inside an earlier segment",
         Jpeg({Segment(0xE1, "Exif\xFF\xED"), kIptc, image}), true},
        {"APP13 after the image data", Jpeg({kApp0, image}) + kLateIptc, false},
        {"APP13 before and after the image data", Jpeg({kIptc, image}) + kLateIptc, false},
        {"APP13 marker across the first stretch", App13At(65'535), false},
        {"APP13 marker across a later stretch", App13At(131'071), false},
        {"a segment length below two", Jpeg({std::string("\xFF\xE1\0\1", 4), kIptc, image}), false},
        {"no marker where a segment starts", Jpeg({kIptc, "junk", image}), false},
        {"a block that runs into the image data",
         Jpeg({App13("8BIM\x04\x04" + std::string(2, '\0') + BigEndian(5000, 4) +
                     IptcRecord(120, "Dawn")),
               image}),
         false},
        {"a text that runs into the image data",
         Jpeg({App13(IptcResource(std::string("\x1C\x02\x78\x01\xF4", 5) + "Dawn")), image}),
         false},
        {"the resource only in the image data",
         Jpeg({App13("8BIM\x03\xED"), ImageData(10) + IptcResource(IptcRecord(105, "odd"))}),
         false},
        {"cut inside the segments", Jpeg({kApp0, kIptc, image}).substr(0, 30), false},
    };
    TempDir folder;
    for (const Case& test : cases)
        ExpectSameAsWholeScan(folder, test.bytes, test.what, test.readFromHead);
}

}  // namespace
}  // namespace tessarin
