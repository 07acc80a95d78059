#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>

namespace
{

using Floors = std::set<std::string>;

/// Each floor and those that it may see.
const std::map<std::string, Floors> MaySee{
    {"numeric", {}},
    {"ephemeris", {"numeric"}},
    {"sailing", {"numeric", "ephemeris"}},
    {"fix", {"numeric", "ephemeris", "sailing"}},
    {"planning", {"numeric", "ephemeris", "sailing", "fix"}},
    {"platform", {"numeric", "ephemeris"}},
    {"output", {"numeric", "ephemeris", "sailing", "fix", "planning", "platform"}},
    {"app", {"numeric", "ephemeris", "sailing", "fix", "planning", "platform", "output"}},
    {"cli", {"numeric", "ephemeris", "sailing", "fix", "planning", "platform", "output"}}};

const Floors Core{"numeric", "ephemeris", "sailing", "fix", "planning"};

/// The names that a source includes, as they are written.
std::set<std::string> Includes(const std::filesystem::path& source)
{
    const std::string directive = "#include ";
    std::set<std::string> names;
    std::ifstream file(source);
    for (std::string line; std::getline(file, line);)
        if (line.starts_with(directive) && line.size() > directive.size() + 2)
            names.insert(line.substr(directive.size() + 1, line.find_last_of(">\"") - directive.size() - 1));
    return names;
}

TEST(Architecture, IncludesPointDown)
{
    int sources = 0;
    for (const auto& [floor, seen] : MaySee) {
        const std::filesystem::path folder = std::filesystem::path(MEROV_SOURCE_DIR) / floor;
        if (!std::filesystem::exists(folder)) continue;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
            ++sources;
            for (const std::string& name : Includes(entry.path())) {
                const std::string top = name.substr(0, name.find('/'));
                const bool other = MaySee.contains(top) && name != top && top != floor;
                EXPECT_TRUE(!other || seen.contains(top)) << entry.path() << " includes " << name;
                const bool ours = MaySee.contains(top);
                const bool standard =
                    name.find_first_not_of("abcdefghijklmnopqrstuvwxyz_0123456789") == std::string::npos;
                const bool system = name == "fcntl.h" || name == "unistd.h" || name.starts_with("sys/");
                EXPECT_TRUE(!Core.contains(floor) || ours || standard || system)
                    << entry.path() << " includes " << name;
            }
        }
    }
    EXPECT_GT(sources, 60);
}

} // namespace
