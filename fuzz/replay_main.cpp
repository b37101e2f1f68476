// SPDX-License-Identifier: GPL-3.0-or-later
//
// Stands in for the fuzzer where there is none: gives the target each file of the folders and files
// named on the command line, in order of their names.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv)
{
    namespace fs = std::filesystem;
    std::vector<fs::path> files;
    for (int i = 1; i < argc; ++i) {
        if (!fs::is_directory(argv[i])) {
            files.emplace_back(argv[i]);
            continue;
        }
        for (const auto& entry : fs::directory_iterator(argv[i]))
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    std::vector<std::string> inputs(1); // the empty input, too
    for (const fs::path& file : files) {
        std::ifstream stream(file, std::ios::binary);
        inputs.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        // A finding ends the process; its input is the last one named.
        std::fprintf(stderr, "%s\n", i == 0 ? "(empty)" : files[i - 1].c_str());
        const std::vector<std::uint8_t> bytes(inputs[i].begin(), inputs[i].end()); // ends where it ends
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    std::fprintf(stderr, "%zu inputs\n", inputs.size());
    return files.empty() ? 1 : 0;
}
