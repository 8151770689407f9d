#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

namespace vrix {

// A temporary folder for one test; the destructor removes it.
struct TemporaryFolder {
    TemporaryFolder() { std::filesystem::create_directories(folder); }
    ~TemporaryFolder() { std::filesystem::remove_all(folder); }
    std::string path(const std::string& name) const { return (folder / name).string(); }
    std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("vrix_test_" + std::to_string(std::random_device{}()));
};

inline void writeBytes(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream bytes;  // a folder gives none, and throws nothing
    bytes << stream.rdbuf();
    return bytes.str();
}

}  // namespace vrix
