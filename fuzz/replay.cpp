// SPDX-License-Identifier: BSD-3-Clause
// Runs a fuzzing target without a fuzzer: once with each file of the corpus, then with mutants of
// them. Runs with the same arguments are identical.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <set>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count);

namespace {

using Input = std::vector<std::uint8_t>;

Input readFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Files, and the files of folders, in the order of their names.
std::vector<Input> readCorpus(int count, char* paths[])
{
    std::set<std::filesystem::path> files;
    for (int i = 0; i < count; ++i) {
        if (std::filesystem::is_directory(paths[i])) {
            for (const auto& entry : std::filesystem::directory_iterator(paths[i]))
                files.insert(entry.path());
        } else {
            files.insert(paths[i]);
        }
    }
    std::vector<Input> corpus;
    for (const auto& file : files)
        corpus.push_back(readFile(file));
    return corpus;
}

// A few bytes changed, and sometimes the end of another input after the start of this one.
Input mutant(const std::vector<Input>& corpus, std::mt19937& random)
{
    const auto below = [&](std::size_t bound) { return random() % bound; };
    Input input = corpus[below(corpus.size())];
    if (below(4) == 0) {
        const Input& other = corpus[below(corpus.size())];
        input.resize(below(input.size() + 1));
        input.insert(input.end(),
                     other.begin() + static_cast<std::ptrdiff_t>(below(other.size() + 1)),
                     other.end());
    }
    for (std::size_t changes = 1 + below(6); changes > 0 && !input.empty(); --changes)
        input[below(input.size())] = static_cast<std::uint8_t>(random());
    return input;
}

} // namespace

// replay MUTANTS [FILE | FOLDER]...
int main(int argc, char* argv[])
{
    const std::vector<Input> corpus = readCorpus(argc - 2, argv + 2);
    if (corpus.empty()) {
        std::cerr << "usage: " << argv[0] << " MUTANTS FILE-OR-FOLDER...\n";
        return 2;
    }
    for (const Input& input : corpus)
        LLVMFuzzerTestOneInput(input.data(), input.size());

    std::mt19937 random(1);
    const long mutants = std::atol(argv[1]);
    for (long i = 0; i < mutants; ++i) {
        const Input input = mutant(corpus, random);
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
    std::cout << corpus.size() << " inputs and " << mutants << " mutants\n";
    return 0;
}
