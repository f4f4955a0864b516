// Runs a target on kept inputs: every file named, and every file of a folder named.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

#include "bersaglio.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> ingressi(int argc, char** argv) {
    std::vector<fs::path> trovati;
    for (int i = 1; i < argc; i++) {
        if (!fs::is_directory(argv[i])) {
            trovati.emplace_back(argv[i]);
            continue;
        }
        for (const fs::directory_entry& voce : fs::directory_iterator(argv[i]))
            if (voce.is_regular_file())
                trovati.push_back(voce.path());
    }
    // A target may go to another folder.
    for (fs::path& file : trovati)
        file = fs::absolute(file);
    std::sort(trovati.begin(), trovati.end());
    return trovati;
}

void riproduci(const fs::path& file) {
    std::ifstream flusso(file, std::ios::binary);
    if (!flusso)
        throw fs::filesystem_error("cannot be read", file, std::make_error_code(std::errc::no_such_file_or_directory));
    const std::vector<char> letti{std::istreambuf_iterator<char>(flusso), std::istreambuf_iterator<char>()};
    // Exactly as large as the input, as the fuzzer hands it over.
    const auto byte = std::make_unique<std::uint8_t[]>(letti.size());
    std::transform(letti.begin(), letti.end(), byte.get(), [](char c) { return static_cast<std::uint8_t>(c); });
    std::fprintf(stderr, "%s\n", file.c_str());  // whatever ends the program, its input is the last one named
    LLVMFuzzerTestOneInput(byte.get(), letti.size());
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const std::vector<fs::path> tutti = ingressi(argc, argv);
        if (tutti.empty()) {
            std::fprintf(stderr, "no inputs: name files or folders of files\n");
            return 2;
        }
        for (const fs::path& file : tutti)
            riproduci(file);
        std::fprintf(stderr, "%zu inputs, no findings\n", tutti.size());
        return 0;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
        return 1;
    }
}
