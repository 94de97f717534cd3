#include "text/styled_text.h"

#include <algorithm>
#include <utility>

#include "text/styled_text_case.h"
#include "text/styled_text_search.h"
#include "text/styled_text_store.h"

namespace tessarin {

struct StyledText::Storage : BlockStore {
    using BlockStore::BlockStore;
};

namespace {

const BlockStore& EmptyStore() {
    static const BlockStore empty;
    return empty;
}

bool SameRuns(const std::vector<FormatRun>& a, const std::vector<FormatRun>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const FormatRun& x, const FormatRun& y) {
                          return x.start == y.start && x.length == y.length && x.format == y.format;
                      });
}

// A new or moved-from text has no storage and reads as empty; storage comes with the first
// edit. Templates, so that the private storage type need not be named here.
template <typename StoragePointer>
const BlockStore& Read(const StoragePointer& storage) {
    return storage ? *storage : EmptyStore();
}

template <typename StoragePointer>
BlockStore& Write(StoragePointer& storage) {
    if (!storage) storage = std::make_unique<typename StoragePointer::element_type>();
    return *storage;
}

}  // namespace

StyledText::StyledText() = default;

StyledText::StyledText(std::u16string_view text, const CharFormat& format) {
    Insert(0, text, format);
}

StyledText::StyledText(const StyledText& other)
    : storage_(other.storage_ ? std::make_unique<Storage>(*other.storage_) : nullptr) {}

StyledText& StyledText::operator=(const StyledText& other) {
    if (this != &other) {
        storage_ = other.storage_ ? std::make_unique<Storage>(*other.storage_) : nullptr;
    }
    return *this;
}

StyledText::StyledText(StyledText&&) noexcept = default;
StyledText& StyledText::operator=(StyledText&&) noexcept = default;
StyledText::~StyledText() = default;

std::size_t StyledText::Length() const {
    return Read(storage_).Length();
}

std::u16string StyledText::Text() const {
    return Text(0, Length());
}

std::u16string StyledText::Text(std::size_t start, std::size_t length) const {
    std::u16string text;
    if (start < Length()) text.reserve(std::min(length, Length() - start));
    Read(storage_).Visit(start, length, [&text](std::u16string_view piece, const CharFormat&) {
        text += piece;
        return true;
    });
    return text;
}

char16_t StyledText::CharAt(std::size_t position) const {
    return position < Length() ? Read(storage_).UnitAt(position) : u'\0';
}

CharFormat StyledText::FormatAt(std::size_t position) const {
    if (Empty()) return {};
    return Read(storage_).FormatAt(std::min(position, Length() - 1));
}

std::vector<FormatRun> StyledText::Runs() const {
    std::vector<FormatRun> runs;
    ForEachRun(0, Length(), [&runs](const FormatRun& run) { runs.push_back(run); });
    return runs;
}

void StyledText::ForEachRun(std::size_t start, std::size_t length,
                            const std::function<void(const FormatRun&)>& visit) const {
    // Stretches of one block never join, but neighbouring blocks may share a format.
    std::optional<FormatRun> pending;
    std::size_t position = start;
    Read(storage_).Visit(start, length, [&](std::u16string_view piece, const CharFormat& format) {
        if (pending && pending->format == format) {
            pending->length += piece.size();
        } else {
            if (pending) visit(*pending);
            pending = FormatRun{position, piece.size(), format};
        }
        position += piece.size();
        return true;
    });
    if (pending) visit(*pending);
}

void StyledText::Insert(std::size_t position, std::u16string_view text, const CharFormat& format) {
    if (text.empty()) return;
    const FormatSpan span{text.size(), format};
    Write(storage_).Insert(position, text, std::span(&span, 1));
}

void StyledText::Insert(std::size_t position, const StyledText& other) {
    // Copied out first, so that a text can be inserted into itself.
    std::u16string text;
    std::vector<FormatSpan> spans;
    other.ForEachRun(0, other.Length(), [&](const FormatRun& run) {
        spans.push_back({run.length, run.format});
    });
    text = other.Text();
    Write(storage_).Insert(position, text, spans);
}

void StyledText::Erase(std::size_t start, std::size_t length) {
    if (storage_) storage_->Erase(start, length);
}

void StyledText::Replace(std::size_t start, std::size_t length, std::u16string_view text) {
    start = std::min(start, Length());
    length = std::min(length, Length() - start);
    const CharFormat format = FormatAt(length > 0 || start == 0 ? start : start - 1);
    Erase(start, length);
    Insert(start, text, format);
}

void StyledText::Clear() {
    storage_.reset();
}

StyledText StyledText::Slice(std::size_t start, std::size_t length) const {
    BlockBuilder builder(BlockStore::kPieceSize);
    Read(storage_).Visit(start, length,
                         [&builder](std::u16string_view piece, const CharFormat& format) {
                             builder.Append(piece, format);
                             return true;
                         });
    StyledText slice;
    slice.storage_ = std::make_unique<Storage>(builder.Take());
    return slice;
}

void StyledText::ApplyFormat(std::size_t start, std::size_t length,
                             const std::function<void(CharFormat&)>& change) {
    if (storage_) storage_->ApplyFormat(start, length, change);
}

bool StyledText::AllOf(std::size_t start, std::size_t length,
                       const std::function<bool(const CharFormat&)>& test) const {
    if (start >= Length() || length == 0) return test(FormatAt(start));
    return Read(storage_).Visit(
        start, length,
        [&test](std::u16string_view, const CharFormat& format) { return test(format); });
}

std::int64_t StyledText::Find(std::u16string_view what, std::size_t start, bool matchCase,
                              bool wholeWord) const {
    if (what.empty() || start >= Length()) return -1;
    const BlockStore& store = Read(storage_);
    const auto standsAlone = [&](std::size_t matchStart) {
        const std::size_t after = matchStart + what.size();
        return (matchStart == 0 || !IsWordUnit(store.UnitAt(matchStart - 1))) &&
               (after >= store.Length() || !IsWordUnit(store.UnitAt(after)));
    };
    PatternMatcher matcher(what, matchCase);
    std::int64_t found = -1;
    std::size_t position = start;
    store.Visit(start, store.Length(), [&](std::u16string_view piece, const CharFormat&) {
        for (char16_t unit : piece) {
            ++position;
            if (!matcher.Feed(unit)) continue;
            const std::size_t matchStart = position - what.size();
            if (!wholeWord || standsAlone(matchStart)) {
                found = static_cast<std::int64_t>(matchStart);
                return false;
            }
        }
        return true;
    });
    return found;
}

void StyledText::ToUpper(std::size_t start, std::size_t length) {
    if (storage_) storage_->MapUnits(start, length, ToUpperUnit);
}

void StyledText::ToLower(std::size_t start, std::size_t length) {
    if (storage_) storage_->MapUnits(start, length, ToLowerUnit);
}

bool operator==(const StyledText& a, const StyledText& b) {
    if (a.Length() != b.Length() || !SameRuns(a.Runs(), b.Runs())) return false;
    // The texts are compared a stretch at a time, so that comparing two large boxes (the undo
    // ring does at each step) never copies either one whole.
    constexpr std::size_t kStretch = 16 * 1024;
    for (std::size_t start = 0; start < a.Length(); start += kStretch) {
        if (a.Text(start, kStretch) != b.Text(start, kStretch)) return false;
    }
    return true;
}

}  // namespace tessarin
