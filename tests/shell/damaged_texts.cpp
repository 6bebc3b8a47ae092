#include "tests/shell/damaged_texts.h"

#include <random>

namespace tess::test {

namespace {

/// Numbers below a bound from a fixed sequence, the same with every library.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : generator_(seed) {}
    std::size_t Below(std::size_t bound) { return bound == 0 ? 0 : generator_() % bound; }
    char Byte() { return static_cast<char>(generator_() & 0xFF); }

private:
    std::mt19937 generator_;
};

constexpr const char* kValues[] = {"-1",
                                   "0",
                                   "2147483647",
                                   "2147483648",
                                   "4294967295",
                                   "4294967296",
                                   "-2147483649",
                                   "99999999999",
                                   "99999999999999999999999999",
                                   "",
                                   "0x10",
                                   "1e9",
                                   "=",
                                   " ",
                                   "\xFF\xFF"};

/// The value of some line gives way to one out of range, or to none.
void ReplaceValue(std::string* text, Dice* dice) {
    const std::size_t equals = text->find('=', dice->Below(text->size()));
    if (equals == std::string::npos) return;
    const std::size_t end = std::min(text->find('\n', equals), text->size());
    text->replace(equals + 1, end - equals - 1, kValues[dice->Below(std::size(kValues))]);
}

void DamageOnce(std::string* text, Dice* dice) {
    const std::size_t at = dice->Below(text->size() + 1);
    const std::size_t length = dice->Below(40);
    switch (dice->Below(7)) {
        case 0:
            if (at < text->size()) (*text)[at] = dice->Byte();
            break;
        case 1:
            text->erase(at, length);
            break;
        case 2:
            text->insert(at, text->substr(dice->Below(text->size() + 1), length));
            break;
        case 3:
            text->insert(at, dice->Below(300), dice->Byte());
            break;
        case 4:
            text->insert(at, 1, '\n');
            break;
        default:
            ReplaceValue(text, dice);
            break;
    }
}

}  // namespace

void ForEachCutOff(const std::string& whole, std::size_t step,
                   const std::function<void(const std::string&)>& use) {
    for (std::size_t length = 0; length <= whole.size(); length += step)
        use(whole.substr(0, length));
}

void ForEachDamaged(const std::string& whole, std::uint32_t seed, int count,
                    const std::function<void(const std::string&)>& use) {
    Dice dice(seed);
    for (int i = 0; i < count; ++i) {
        std::string text = whole;
        for (std::size_t times = 1 + dice.Below(20); times > 0; --times)
            DamageOnce(&text, &dice);
        use(text);
    }
}

void ForEachRandom(std::uint32_t seed, int count,
                   const std::function<void(const std::string&)>& use) {
    Dice dice(seed);
    for (int i = 0; i < count; ++i) {
        std::string text(dice.Below(2000), '\0');
        for (char& byte : text)
            byte = dice.Byte();
        use(text);
    }
}

}  // namespace tess::test
