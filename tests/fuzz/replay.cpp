// Runs a fuzz target over its seeds and over a fixed number of changed ones, the same each time:
// NAME_fuzz CORPUS [ROUNDS [FILE]]. With FILE, each input is kept there while it runs, so that
// after a crash the one that did it is there.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Random = std::mt19937_64;

std::size_t below(Random& random, std::size_t limit) {
    return limit == 0 ? 0 : static_cast<std::size_t>(random() % limit);
}

std::vector<std::string> readSeeds(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> paths;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        paths.push_back(entry.path());
    }
    std::sort(paths.begin(), paths.end());
    std::vector<std::string> seeds;
    for (const auto& path : paths) {
        std::ifstream file(path, std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return seeds;
}

// A number that sits on the edge of something, as the bytes of a file hold it.
std::string edge(Random& random) {
    constexpr std::uint64_t numbers[] = {
        0,          1,          0x7f,        0x80,       0xff, 0xffff, 0x7fffffff,
        0x80000000, 0xffffffff, 1ULL << 63U, UINT64_MAX, 15,   200000};
    const std::uint64_t number = numbers[below(random, std::size(numbers))];
    std::string bytes;
    const std::size_t width = std::size_t{1} << below(random, 4);
    for (std::size_t left = width; left > 0; --left) {
        bytes += static_cast<char>(number >> (8 * (left - 1)) & 255U);
    }
    return bytes;
}

void change(std::string& bytes, const std::vector<std::string>& seeds, Random& random) {
    const std::size_t at = below(random, bytes.size() + 1);
    const std::size_t length = 1 + below(random, 16);
    const std::string& other = seeds[below(random, seeds.size())];
    switch (below(random, 8)) {
        case 0:  // flips a bit
            if (at < bytes.size()) {
                bytes[at] = static_cast<char>(static_cast<std::uint8_t>(bytes[at]) ^
                                              1U << below(random, 8));
            }
            break;
        case 1:
            if (at < bytes.size()) bytes[at] = static_cast<char>(random());
            break;
        case 2:
            bytes.erase(at, length);
            break;
        case 3:
            bytes.insert(at, 1, static_cast<char>(random()));
            break;
        case 4:
            bytes.resize(at);
            break;
        case 5: {
            const std::string number = edge(random);
            bytes.replace(at, number.size(), number);
            break;
        }
        case 6:  // doubles a piece, up to many times
            if (const std::string piece = bytes.substr(at, length); bytes.size() < 100000) {
                for (std::size_t times = below(random, 64) + 1; times > 0; --times) {
                    bytes.insert(at, piece);
                }
            }
            break;
        default:
            bytes.insert(at, other.substr(below(random, other.size()), 4 * length));
            break;
    }
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 2) {
        std::cerr << "usage: " << arguments[0] << " CORPUS [ROUNDS [FILE]]\n";
        return 2;
    }
    const std::vector<std::string> seeds = readSeeds(arguments[1]);
    if (seeds.empty()) {
        std::cerr << arguments[1] << " holds no seeds\n";
        return 2;
    }
    const std::size_t rounds = count > 2 ? std::strtoull(arguments[2], nullptr, 10) : 3000;
    const auto run = [&](const std::string& bytes) {
        if (count > 3) std::ofstream(arguments[3], std::ios::binary) << bytes;
        // A copy of its own, so that reading past the end is seen.
        const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
        (void)LLVMFuzzerTestOneInput(input.data(), input.size());
    };
    Random random(20010101);
    for (const std::string& seed : seeds) run(seed);
    for (std::size_t round = 0; round < rounds; ++round) {
        std::string bytes = seeds[below(random, seeds.size())];
        for (std::size_t changes = 1 + below(random, 6); changes > 0; --changes) {
            change(bytes, seeds, random);
        }
        run(bytes);
    }
    std::cout << seeds.size() << " seeds and " << rounds << " changed ones\n";
    return 0;
}
