// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace test {

inline const std::filesystem::path kSources = std::filesystem::path(VEMORA_SOURCE_DIR) / "src";

inline std::string ReadAll(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Every source and header of the program, as paths relative to src ("core/mMain.h").
inline std::vector<std::string> SourceFiles() {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kSources)) {
        const auto extension = entry.path().extension();
        if (extension == ".h" || extension == ".cpp") {
            files.push_back(entry.path().lexically_relative(kSources).generic_string());
        }
    }
    return files;
}

}  // namespace test
