#include "linguistics/empty_words.h"

#include "common/file_io.h"
#include "common/utf8.h"
#include "linguistics/word_list_file.h"
#include "text/styled_text_case.h"

namespace tessarin {

std::filesystem::path EmptyWordsFile(const Configuration& configuration,
                                     const std::filesystem::path& appDir) {
    std::string name = configuration.interface.Entry("ToolsWordStatisticsEmptyWordsList").File;
    if (name.empty()) name = "EmptyWords.txt";
    const std::filesystem::path file(name);
    return file.is_absolute() ? file : appDir / file;
}

std::vector<std::string> ReadEmptyWordsList(const std::filesystem::path& file) {
    return ReadWordListLines(file).value_or(std::vector<std::string>());
}

bool WriteEmptyWordsList(const std::filesystem::path& file, const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += word + "\r\n";
    return WriteFileAtomically(file, text);
}

EmptyWords::EmptyWords(const std::vector<std::string>& words) {
    for (const std::string& word : words) {
        std::u16string upper = Utf8ToUtf16(word);
        for (char16_t& unit : upper)
            unit = ToUpperUnit(unit);
        upper_.insert(std::move(upper));
    }
}

}  // namespace tessarin
