/// Writes Planet.dat, the binary series of Saturn, from their table of figures.
///
/// write_planet_data saturn_series.csv Planet.dat
///
/// The table holds a heading and one line "block,A,B,C" for each term; the file holds the three
/// doubles of each term, little-endian, block after block without marks.

#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

namespace
{

struct Block {
    std::string_view name;
    int terms;
};

constexpr std::array<Block, 18> Blocks{{{"L0", 500},
                                        {"L1", 350},
                                        {"L2", 321},
                                        {"L3", 148},
                                        {"L4", 68},
                                        {"L5", 27},
                                        {"B0", 300},
                                        {"B1", 260},
                                        {"B2", 111},
                                        {"B3", 58},
                                        {"B4", 26},
                                        {"B5", 11},
                                        {"R0", 500},
                                        {"R1", 350},
                                        {"R2", 342},
                                        {"R3", 157},
                                        {"R4", 64},
                                        {"R5", 28}}};

void AppendLittleEndian(std::string& bytes, double value)
{
    const auto bits = std::bit_cast<std::uint64_t>(value);
    for (int shift = 0; shift < 64; shift += 8)
        bytes += static_cast<char>((bits >> shift) & 0xFF);
}

/// Reads one term of block `name` from `line` and appends its three numbers; false for any other line.
bool AppendTerm(std::string_view line, std::string_view name, std::string& bytes)
{
    if (!line.starts_with(name) || line.size() <= name.size()) return false;
    const char* place = line.data() + name.size();
    const char* end = line.data() + line.size();
    for (int i = 0; i < 3; ++i) {
        double value = 0.0;
        if (place == end || *place != ',') return false;
        const auto read = std::from_chars(place + 1, end, value);
        if (read.ec != std::errc()) return false;
        AppendLittleEndian(bytes, value);
        place = read.ptr;
    }
    return place == end;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: write_planet_data saturn_series.csv Planet.dat\n";
        return 2;
    }
    std::ifstream table(argv[1]);
    std::string line;
    std::getline(table, line); // heading
    std::string bytes;
    for (const Block& block : Blocks) {
        for (int term = 1; term <= block.terms; ++term) {
            if (!std::getline(table, line) || !AppendTerm(line, block.name, bytes)) {
                std::cerr << argv[1] << ": term " << term << " of block " << block.name
                          << " is missing or unreadable\n";
                return 1;
            }
        }
    }
    std::ofstream file(argv[2], std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        std::cerr << argv[2] << ": cannot be written\n";
        return 1;
    }
    return 0;
}
