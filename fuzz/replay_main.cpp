// The native build links each fuzz target with this main instead of
// libFuzzer: it hands every file of the folders (or the files) it is given to
// the target once, under the sanitizers of the native build, so that the seed
// corpus is a regression test. A path that is missing or a folder that holds
// no input is a failure, so that a corpus cannot drop out of the test unseen.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

bool Replay(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "replay: cannot read %s\n", file.c_str());
        return false;
    }
    std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    // A buffer of exactly the input's size, as libFuzzer gives it, so that
    // a read one byte past the end is caught.
    std::unique_ptr<std::uint8_t[]> data(new std::uint8_t[bytes.size()]);
    std::copy(bytes.begin(), bytes.end(), data.get());
    // Named before it runs: a sanitizer report then follows its file name.
    std::fprintf(stderr, "replay: %s (%zu bytes)\n", file.c_str(), bytes.size());
    LLVMFuzzerTestOneInput(data.get(), bytes.size());
    return true;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s FOLDER|FILE...\n", argv[0]);
        return 2;
    }
    for (int i = 1; i < argc; ++i) {
        const fs::path path = argv[i];
        std::vector<fs::path> files;
        std::error_code error;
        if (fs::is_directory(path, error)) {
            for (const fs::directory_entry& entry : fs::directory_iterator(path, error))
                if (entry.is_regular_file())
                    files.push_back(entry.path());
            std::sort(files.begin(), files.end());
        } else if (fs::is_regular_file(path, error)) {
            files.push_back(path);
        }
        if (files.empty()) {
            std::fprintf(stderr, "replay: no input in %s\n", path.c_str());
            return 1;
        }
        for (const fs::path& file : files)
            if (!Replay(file))
                return 1;
        std::printf("replayed %zu input(s) from %s\n", files.size(), path.c_str());
    }
    return 0;
}
