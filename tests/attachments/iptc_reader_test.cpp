#include "attachments/iptc_reader.h"

#include <random>

#include <gtest/gtest.h>

#include "attachments/iptc_display.h"
#include "attachments/iptc_scanner.h"
#include "attachments/jpeg_bytes.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using namespace testing;

// How many bytes of the file the scan took as text, all records together.
std::size_t TextBytes(std::string_view bytes) {
    const auto records = ScanIptcRecords(bytes, IptcScanExtent::WholeFile);
    std::size_t total = 0;
    for (const IptcRawRecord& record : *records)
        total += record.text.size();
    return total;
}

TEST(IptcReader, ReadsEveryBlockJoiningRepeatsAndKeepingTheLastOfTheOthers) {
    const std::string first = App13(
        IptcResource(IptcRecord(0, std::string("\0\4", 2)) + IptcRecord(25, "a") +
                     IptcRecord(105, "first") + IptcRecord(120, "  x ") + IptcRecord(3, "three") +
                     IptcRecord(110, std::string("Caf\xE9\0Press", 10))));
    const std::string second =
        App13(IptcResource(IptcRecord(25, " b ") + IptcRecord(25, "") + IptcRecord(105, "last") +
                           IptcRecord(200, " big ")));
    const IptcData data = ReadIptcBytes(Jpeg({first, std::string("\xFF\xE0\0\4ab", 6), second}));

    EXPECT_EQ(data.Value(kIptcKeywords), "a; b");
    EXPECT_EQ(data.Entries(kIptcKeywords), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(data.Value(105), "last");
    EXPECT_EQ(data.Value(kIptcCaptionAbstract), "x");
    EXPECT_EQ(data.Value(kIptcCredit), "Caf\u00E9 Press");
    EXPECT_EQ(data.unnamed, (std::vector<IptcUnnamedDataset>{{3, "three"}, {200, " big "}}));
    EXPECT_FALSE(data.shortRead);
}

TEST(IptcReader, TakesTheBlockSizeFromTheFourByteFieldAfterThePaddedName) {
    const std::string records = IptcRecord(120, "caption") + IptcRecord(110, "credit");
    // A record one byte past the block's end: only a reader that honours the block's size
    // leaves it out.
    for (std::string_view name : {"", "a", "ab"}) {
        const IptcData data = ReadIptcBytes(Jpeg({App13(
            IptcResource(records, name) + std::string(1, '\0') + IptcRecord(105, "outside"))}));
        EXPECT_EQ(data.Value(kIptcCredit), "credit") << "name '" << name << "'";
        EXPECT_EQ(data.Value(105), "") << "name '" << name << "'";
    }
    // A record that starts right at the block's end is still read.
    const std::string atEnd = IptcResource(IptcRecord(120, "c")) + IptcRecord(105, "edge");
    EXPECT_EQ(ReadIptcBytes(Jpeg({App13(atEnd)})).Value(105), "edge");
}

TEST(IptcReader, StopsAtTheEndOfTheFile) {
    const std::string cut = "\xFF\xD8\xFF\xED" + std::string("8BIM\x04\x04\0\0\0\0\x01\0", 12) +
                            std::string("\x1C\x02\x78\x03\xE8tail", 9);
    EXPECT_EQ(ReadIptcBytes(cut).Value(kIptcCaptionAbstract), "tail");

    const std::string whole = Jpeg({App13(
        IptcResource(IptcRecord(25, "k1") + IptcRecord(25, "k2") + IptcRecord(120, "caption")))});
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const IptcData prefix = ReadIptcBytes(std::string_view(whole).substr(0, length));
        EXPECT_LE(prefix.Entries(kIptcKeywords).size(), 2u);
        EXPECT_TRUE(std::string("caption").starts_with(prefix.Value(kIptcCaptionAbstract)));
    }
}

TEST(IptcReader, FindsNothingOutsideAJpegAndSurvivesRandomBytes) {
    TempDir folder;
    const std::string app13 = App13(IptcResource(IptcRecord(120, "hidden")));
    EXPECT_TRUE(ReadIptc(folder.Write("a.zip", "PK\3\4" + app13)).Empty());
    EXPECT_TRUE(ReadIptc(folder / "missing.jpg").Empty());
    EXPECT_TRUE(ReadIptc(folder.path()).Empty());
    EXPECT_EQ(ReadIptc(folder.Write("b.jpg", Jpeg({app13}))).Value(120), "hidden");

    std::mt19937 random(20240601);
    const std::string pieces[] = {"\xFF\xED", "8BIM\x04\x04", "\x1C\x02", "\xFF", {"\0\0", 2}};
    for (int round = 0; round < 2000; ++round) {
        std::string bytes = "\xFF\xD8";
        const int count = static_cast<int>(random() % 40);
        for (int index = 0; index < count; ++index) {
            bytes += random() % 3 ? std::string(1, char(random())) : pieces[random() % 5];
        }
        EXPECT_LE(TextBytes(bytes), bytes.size());
        const IptcData data = ReadIptcBytes(bytes);
        for (const IptcDataset& dataset : IptcDatasets()) {
            EXPECT_LE(data.Value(dataset.number).size(), 3 * bytes.size());
        }
    }
}

TEST(IptcReader, ReadsEveryTextAsUtf8WhenTheEnvelopeDeclaresIt) {
    const std::string utf8 = "\x1B%G";
    // "é", a CJK character and a byte that is no UTF-8.
    const std::string caption = IptcRecord(120, "Caf\xC3\xA9 \xE6\x9D\xB1 \xFF");
    const std::string asUtf8 = "Caf\u00E9 \u6771 \u00FF";
    const std::string as1252 = "Caf\u00C3\u00A9 \u00E6\u009D\u00B1 \u00FF";
    struct Case {
        const char* what;
        std::string picture;
        std::string caption;
        std::string city;
    };
    const Case cases[] = {
        {"declared", Jpeg({App13(IptcResource(IptcRecord(90, utf8, 1) + caption))}), asUtf8, ""},
        {"declared in a later block",
         Jpeg({App13(IptcResource(caption)), App13(IptcResource(IptcRecord(90, utf8, 1)))}), asUtf8,
         ""},
        {"not declared", Jpeg({App13(IptcResource(caption))}), as1252, ""},
        // Any other envelope dataset 90, and the escape in the application record, are the
        // city that the unchecked record number makes them.
        {"another character set",
         Jpeg({App13(IptcResource(IptcRecord(90, "\x1B-A", 1) + caption))}), as1252, "\x1B-A"},
        {"the escape as a city", Jpeg({App13(IptcResource(IptcRecord(90, utf8) + caption))}),
         as1252, "\x1B%G"},
    };
    for (const Case& test : cases) {
        const IptcData data = ReadIptcBytes(test.picture);
        EXPECT_EQ(data.Value(kIptcCaptionAbstract), test.caption) << test.what;
        EXPECT_EQ(data.Value(90), test.city) << test.what;
        EXPECT_EQ(data.declaredUtf8, test.caption == asUtf8) << test.what;
        EXPECT_TRUE(data.unnamed.empty()) << test.what;
    }
}

TEST(IptcDisplay, OneLineValuesMacintoshAccentsAndTheTablesOrderAndLabels) {
    EXPECT_EQ(DisplayText("a\r\nb\rc\nd\te", false), "a/b/c/d/e");
    // Windows-1252 characters of bytes 0x8E 0xE9 0x8D 0xE7 0xD5 0x80 0xBD.
    const std::string mac = "\u017D\u00E9\u008D\u00E7\u00D5\u20AC\u00BD";
    EXPECT_EQ(DisplayText(mac, false), mac);
    EXPECT_EQ(DisplayText(mac, true), "\u00E9\u00C8\u00E7\u00C1'\u00C4\"");

    // A picture declared UTF-8 has its accents already: "é" stays.
    const IptcData utf8 = ReadIptcBytes(
        Jpeg({App13(IptcResource(IptcRecord(90, "\x1B%G", 1) + IptcRecord(120, "\xC3\xA9") +
                                 IptcRecord(200, "\xC3\xA9")))}));
    EXPECT_EQ(IptcDisplayLines(utf8, {}, true).front().value, "\u00E9");
    EXPECT_EQ(IptcSegmentLines(utf8, true), std::vector<std::string>{"Segment 200: \u00E9"});

    // The datasets come in the table's order with their labels.
    const IptcData data = ReadIptcBytes(Jpeg({App13(IptcResource(
        IptcRecord(120, "cap\r\ntion") + IptcRecord(105, "head") + IptcRecord(95, "Vaud")))}));
    InterfaceSettings interface;
    interface.entries["IPTCHeadline"].caption = "Titre";
    EXPECT_EQ(
        IptcDisplayLines(data, interface, false),
        (std::vector<IptcDisplayLine>{
            {"Province/State", "Vaud"}, {"Titre", "head"}, {"Caption/Abstract", "cap/tion"}}));
}

}  // namespace
}  // namespace tessarin
