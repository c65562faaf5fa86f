// Runs a harness on kept inputs: files, and all files of directories. For builds without
// libFuzzer, and linked to each harness there.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "fuzz/Harness.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> Inputs(int argc, char** argv) {
    std::vector<fs::path> files;
    for (int i = 1; i < argc; ++i) {
        if (fs::is_directory(argv[i])) {
            std::copy(fs::directory_iterator(argv[i]), {}, std::back_inserter(files));
        } else if (fs::exists(argv[i])) {
            files.emplace_back(argv[i]);
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

void Run(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    // A copy of its own size, so that sanitizers see a step beyond the end.
    const std::vector<char> input(bytes.begin(), bytes.end());
    // Before the run: the last line names what broke.
    std::fprintf(stderr, "%s\n", path.c_str());
    Try({input.data(), input.size()});
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<fs::path> inputs = Inputs(argc, argv);
    for (const fs::path& input : inputs) {
        Run(fs::absolute(input));
    }
    std::printf("%zu inputs\n", inputs.size());
    return inputs.empty() ? 1 : 0;
}
