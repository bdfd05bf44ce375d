// Writes the eleven content files at a size of one's choosing: make-content FOLDER ROWS. Every file gets five sections
// of ROWS/5 rows; no two texts of a file are alike. The same arguments give the same bytes.

#include "content/CurrentOption.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

namespace {

constexpr int sectionCount = 5;

constexpr std::array icons{
    "icon_balloon", "icon_bolt",     "icon_book",      "icon_bottle",   "icon_bulb",   "icon_camera", "icon_candle",
    "icon_cards",   "icon_chat",     "icon_chili",     "icon_cocktail", "icon_coffee", "icon_crown",  "icon_cupcake",
    "icon_cupid",   "icon_dice",     "icon_eye",       "icon_flame",    "icon_ghost",  "icon_gift",   "icon_hand",
    "icon_heart",   "icon_home",     "icon_hourglass", "icon_key",      "icon_kiss",   "icon_lock",   "icon_magnifier",
    "icon_mask",    "icon_mic",      "icon_moon",      "icon_music",    "icon_paw",    "icon_phone",  "icon_pizza",
    "icon_plane",   "icon_question", "icon_rainbow",   "icon_rocket",   "icon_rose",   "icon_scales", "icon_snowflake",
    "icon_star",    "icon_target",   "icon_tent",      "icon_trophy",
};
constexpr std::array sectionTitles{"Warm-Up", "Know Me Better", "Deep End", "Dares of the House", "Last Round"};
constexpr std::array firstWords{"Midnight", "Tiny",  "Borrowed", "Golden", "Unsent", "Sunday", "Crooked", "Secret",
                                "Honest",   "Lucky", "Paper",    "Loud",   "First",  "Second", "Velvet",  "Slow"};
constexpr std::array secondWords{"Confessions", "Promises", "Postcards", "Detours", "Alibis",    "Encores", "Wishes",
                                 "Mixtapes",    "Secrets",  "Breakfast", "Rumours", "Souvenirs", "Whispers"};
constexpr std::array openings{
    "Tell the table about", "Describe in three words",   "Act out, without a sound,", "Guess what they think of",
    "Sing a line about",    "Draw with your eyes shut",  "Name the person who knows", "Swap seats with whoever hides",
    "Defend in one minute", "Whisper to your neighbour", "Count to ten and confess"};
constexpr std::array middles{"your most embarrassing message",
                             "the holiday you never talk about",
                             "a habit that nobody here has noticed",
                             "the best lie you ever told",
                             "your last dream",
                             "the song you skip when others listen",
                             "a compliment you still remember",
                             "the strangest thing in your bag",
                             "what you would do as mayor for a day"};
constexpr std::array endings{".", " before the music stops.", ", and let the others vote on it.",
                             ". Whoever laughs first takes the next dare.",
                             ". Two refusals and you pour the next round for everyone."};

/// Spreads neighbouring numbers over all values.
std::uint64_t mixed(std::uint64_t number) {
    number = (number ^ (number >> 30)) * 0xBF58476D1CE4E5B9U;
    number = (number ^ (number >> 27)) * 0x94D049BB133111EBU;
    return number ^ (number >> 31);
}

template <class Words>
std::string pick(const Words& words, std::uint64_t& random) {
    const std::string word = words[random % words.size()];
    random /= words.size();
    return word;
}

std::string rowText(int file, int row) {
    std::uint64_t random = mixed(static_cast<std::uint64_t>(file) << 32 | static_cast<std::uint64_t>(row));
    const std::string icon = pick(icons, random);
    const std::string title =
        pick(firstWords, random) + ' ' + pick(secondWords, random) + ' ' + std::to_string(row + 1);
    std::string subtitle = pick(openings, random) + ' ' + pick(middles, random);
    subtitle += pick(endings, random) + (row % 40 == 39 ? " 🎲" : "");
    return "      {\n        \"icon\": \"" + icon + "\",\n        \"title\": \"" + title +
           "\",\n        \"subtitle\": \"" + subtitle +
           "\",\n        \"isSelected\": " + (row % 12 == 0 ? "true" : "false") + "\n      }";
}

void writeSection(std::ostream& out, int file, int section, int rows) {
    out << "  {\n    \"sectionTitle\": \"" << sectionTitles[static_cast<std::size_t>(section)]
        << "\",\n    \"items\": [\n";
    for (int row = 0; row < rows; ++row) {
        out << rowText(file, section * rows + row) << (row + 1 < rows ? ",\n" : "\n");
    }
    out << "    ]\n  }" << (section + 1 < sectionCount ? ",\n" : "\n");
}

bool writeFile(const std::filesystem::path& path, int file, int rows) {
    std::ofstream out(path);
    out << "[\n";
    for (int section = 0; section < sectionCount; ++section) {
        writeSection(out, file, section, rows / sectionCount);
    }
    out << "]\n";
    return static_cast<bool>(out.flush());
}

} // namespace

int main(int argc, char** argv) {
    const int rows = argc == 3 ? std::atoi(argv[2]) : 0;
    if (rows < sectionCount) {
        std::cerr << "usage: bench-content FOLDER ROWS (at least 5)\n";
        return 2;
    }
    int file = 0;
    for (const CurrentOption option : contentLoadOrder()) {
        const std::filesystem::path path = std::filesystem::path(argv[1]) / (rawValue(option) + ".json");
        if (!writeFile(path, file++, rows)) {
            std::cerr << "bench-content: " << path.string() << " could not be written\n";
            return 1;
        }
    }
    return 0;
}
