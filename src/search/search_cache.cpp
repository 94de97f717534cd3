#include "search/search_cache.h"

#include <sys/stat.h>

#include <cstring>
#include <optional>
#include <string_view>

#include "common/file_io.h"

namespace tessarin {
namespace {

constexpr std::string_view kMagic = "Tessarin story search cache 1\n";

// FNV-1a over the content, so that a damaged byte anywhere is noticed.
std::uint64_t Checksum(std::string_view bytes) {
    std::uint64_t hash = 1469598103934665603ULL;
    for (const char byte : bytes) {
        hash ^= static_cast<unsigned char>(byte);
        hash *= 1099511628211ULL;
    }
    return hash;
}

class Writer {
  public:
    void Number(std::uint64_t value) { out.append(reinterpret_cast<const char*>(&value), 8); }
    void Text(std::string_view text) {
        Number(text.size());
        out.append(text);
    }
    void Texts(const ScopeTexts& texts) {
        Text(texts.text);
        Number(texts.metadataEnd);
        Number(texts.bodyEnd);
    }
    std::string out;
};

// Every read checks that the bytes are there and the offsets in range; the first that fails
// makes the reader fail for good.
class Reader {
  public:
    explicit Reader(std::string_view bytes) : rest_(bytes) {}
    bool Failed() const { return failed_; }
    bool AtEnd() const { return rest_.empty(); }

    std::uint64_t Number() {
        std::uint64_t value = 0;
        if (rest_.size() < 8) return Fail();
        std::memcpy(&value, rest_.data(), 8);
        rest_.remove_prefix(8);
        return value;
    }
    std::string Text() {
        const std::uint64_t size = Number();
        if (size > rest_.size()) return Fail(), std::string();
        std::string text(rest_.substr(0, size));
        rest_.remove_prefix(size);
        return text;
    }
    ScopeTexts Texts() {
        ScopeTexts texts;
        texts.text = Text();
        const std::uint64_t metadataEnd = Number();
        const std::uint64_t bodyEnd = Number();
        if (metadataEnd > bodyEnd || bodyEnd > texts.text.size()) return Fail(), ScopeTexts();
        texts.metadataEnd = static_cast<std::uint32_t>(metadataEnd);
        texts.bodyEnd = static_cast<std::uint32_t>(bodyEnd);
        return texts;
    }

  private:
    std::uint64_t Fail() {
        failed_ = true;
        rest_ = {};
        return 0;
    }
    std::string_view rest_;
    bool failed_ = false;
};

void WriteRow(Writer& out, const StoryRow& row) {
    for (const std::string* text :
         {&row.name, &row.directory, &row.creationDate, &row.creationTime, &row.lastSaveDate,
          &row.lastSaveTime, &row.lastSaveAuthor, &row.publication, &row.classification,
          &row.section, &row.subSection, &row.publicationDate, &row.form})
        out.Text(*text);
    out.Number(static_cast<std::uint64_t>(row.characters));
    out.Number(static_cast<std::uint64_t>(row.images));
    out.Number(row.backup ? 1 : 0);
}

StoryRow ReadRow(Reader& in) {
    StoryRow row;
    for (std::string* text :
         {&row.name, &row.directory, &row.creationDate, &row.creationTime, &row.lastSaveDate,
          &row.lastSaveTime, &row.lastSaveAuthor, &row.publication, &row.classification,
          &row.section, &row.subSection, &row.publicationDate, &row.form})
        *text = in.Text();
    row.characters = static_cast<std::int64_t>(in.Number());
    row.images = static_cast<std::int32_t>(in.Number());
    row.backup = in.Number() != 0;
    return row;
}

}  // namespace

std::optional<FileStamp> StampOf(const std::filesystem::path& file) {
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return FileStamp{
        static_cast<std::uint64_t>(status.st_size),
        static_cast<std::int64_t>(status.st_mtim.tv_sec) * 1000000000 + status.st_mtim.tv_nsec};
}

const SearchCache::Entry* SearchCache::Find(const std::string& path, const FileStamp& stamp) const {
    const auto found = entries_.find(path);
    if (found == entries_.end() || !(found->second.stamp == stamp)) return nullptr;
    return &found->second;
}

void SearchCache::Put(const std::string& path, Entry entry) {
    entries_.insert_or_assign(path, std::move(entry));
}

bool SearchCache::Save(const std::filesystem::path& file) const {
    Writer out;
    out.Number(entries_.size());
    for (const auto& [path, entry] : entries_) {
        out.Text(path);
        out.Number(entry.stamp.size);
        out.Number(static_cast<std::uint64_t>(entry.stamp.modified));
        out.Number(entry.extract ? 1 : 0);
        if (!entry.extract) continue;
        WriteRow(out, entry.extract->row);
        out.Texts(entry.extract->texts);
        out.Texts(entry.extract->upperTexts);
    }
    Writer whole;
    whole.out = kMagic;
    whole.Number(Checksum(out.out));
    whole.out += out.out;
    return WriteFileReplacing(file, whole.out);
}

bool SearchCache::Load(const std::filesystem::path& file) {
    entries_.clear();
    const std::optional<std::string> bytes = ReadFileBytes(file);
    if (!bytes || !bytes->starts_with(kMagic)) return false;
    Reader header(std::string_view(*bytes).substr(kMagic.size(), 8));
    const std::uint64_t checksum = header.Number();
    if (header.Failed() || bytes->size() < kMagic.size() + 8) return false;
    const std::string_view content = std::string_view(*bytes).substr(kMagic.size() + 8);
    if (Checksum(content) != checksum) return false;

    Reader in(content);
    const std::uint64_t count = in.Number();
    std::unordered_map<std::string, Entry> entries;
    for (std::uint64_t index = 0; index < count && !in.Failed(); ++index) {
        std::string path = in.Text();
        Entry entry;
        entry.stamp.size = in.Number();
        entry.stamp.modified = static_cast<std::int64_t>(in.Number());
        if (in.Number() != 0) {
            StoryExtract extract;
            extract.row = ReadRow(in);
            extract.texts = in.Texts();
            extract.upperTexts = in.Texts();
            entry.extract = std::make_shared<const StoryExtract>(std::move(extract));
        }
        entries.emplace(std::move(path), std::move(entry));
    }
    if (in.Failed() || !in.AtEnd()) return false;
    entries_ = std::move(entries);
    return true;
}

std::filesystem::path SearchCacheFileBeside(const std::filesystem::path& preferencesFile) {
    return preferencesFile.parent_path() / "StorySearch.cache";
}

}  // namespace tessarin
