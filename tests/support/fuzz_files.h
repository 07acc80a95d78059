#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace merov::test
{

/// Runs the check of a fuzz target on each file of its corpus and on each find that was kept.
/// @param check  gives what is wrong with the bytes of a file, empty when all holds
/// @return the number of files
template <class Check>
int ReplayFuzzFiles(const std::string& target, Check check)
{
    namespace fs = std::filesystem;
    int files = 0;
    for (const char* folder : {"/fuzz/corpus/", "/fuzz/finds/"}) {
        const fs::path path = MEROV_SOURCE_DIR + std::string(folder) + target;
        if (!fs::exists(path)) continue;
        for (const auto& file : fs::directory_iterator(path)) {
            std::ifstream bytes(file.path(), std::ios::binary);
            EXPECT_EQ(check(std::string{std::istreambuf_iterator<char>(bytes), {}}), "") << file.path();
            ++files;
        }
    }
    return files;
}

} // namespace merov::test
