#include "Input.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <vector>

namespace fs = std::filesystem;

/// Feeds every file of the folders named on the command line to the target once, in order of name;
/// a folder that is missing counts as empty.
int main(int argc, char *argv[])
{
    std::set<fs::path> files;
    for (int i = 1; i < argc; ++i)
        if (fs::is_directory(argv[i]))
            for (const auto &entry : fs::directory_iterator(argv[i]))
                files.insert(entry.path());
    if (files.empty()) {
        std::fprintf(stderr, "no inputs\n");
        return 1;
    }
    for (const fs::path &file : files) {
        std::fprintf(stderr, "%s\n", file.c_str());
        std::ifstream stream(file, std::ios::binary);
        const std::vector<char> bytes(std::istreambuf_iterator<char>(stream), {});
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(bytes.data()), bytes.size());
    }
    std::fprintf(stderr, "%zu inputs\n", files.size());
}
