#pragma once

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

// What the fuzz targets share: the input as bytes, and as a file in a folder of the process's
// own, in memory where the system has such a folder.

namespace tessarin::fuzz {

inline std::string_view Bytes(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

inline const std::filesystem::path& Folder() {
    static const std::filesystem::path folder = [] {
        std::error_code error;
        const std::filesystem::path memory = "/dev/shm";
        const auto base = std::filesystem::is_directory(memory, error)
                              ? memory
                              : std::filesystem::temp_directory_path();
        auto made = base / ("tessarin-fuzz-" + std::to_string(::getpid()));
        std::filesystem::create_directories(made);
        return made;
    }();
    return folder;
}

// Writes the bytes to the file of that name in the folder, replacing it, and returns its path.
inline std::filesystem::path WriteInput(std::string_view name, std::string_view bytes) {
    const std::filesystem::path file = Folder() / name;
    std::ofstream(file, std::ios::binary | std::ios::trunc)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return file;
}

}  // namespace tessarin::fuzz
