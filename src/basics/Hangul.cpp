#include "basics/Hangul.h"

#include <array>
#include <cstddef>

#include "basics/Utf8.h"

namespace zelvo::basics {

namespace {

constexpr char32_t firstSyllable = 0xAC00, lastSyllable = 0xD7A3;
constexpr char32_t finals = 28, vowels = 21;  // of a syllable's block, none included in the former
constexpr char32_t firstVowel = U'ㅏ', lastVowel = U'ㅣ';

/// In the order of their codes within a syllable.
constexpr std::u32string_view initialSigns = U"ㄱㄲㄴㄷㄸㄹㅁㅂㅃㅅㅆㅇㅈㅉㅊㅋㅌㅍㅎ";
constexpr std::u32string_view finalSigns = U"ㄱㄲㄳㄴㄵㄶㄷㄹㄺㄻㄼㄽㄾㄿㅀㅁㅂㅄㅅㅆㅇㅈㅊㅋㅌㅍㅎ";

/// The keys of the two-set keyboard, and what they type.
constexpr std::string_view keys = "qwertyuiopasdfghjklzxcvbnmQWERTOP";
constexpr std::u32string_view signs = U"ㅂㅈㄷㄱㅅㅛㅕㅑㅐㅔㅁㄴㅇㄹㅎㅗㅓㅏㅣㅋㅌㅊㅍㅠㅜㅡㅃㅉㄸㄲㅆㅒㅖ";

struct Joined {
    char32_t first, second, both;
};
constexpr std::array<Joined, 18> joinedSigns{{{U'ㅗ', U'ㅏ', U'ㅘ'},
                                              {U'ㅗ', U'ㅐ', U'ㅙ'},
                                              {U'ㅗ', U'ㅣ', U'ㅚ'},
                                              {U'ㅜ', U'ㅓ', U'ㅝ'},
                                              {U'ㅜ', U'ㅔ', U'ㅞ'},
                                              {U'ㅜ', U'ㅣ', U'ㅟ'},
                                              {U'ㅡ', U'ㅣ', U'ㅢ'},
                                              {U'ㄱ', U'ㅅ', U'ㄳ'},
                                              {U'ㄴ', U'ㅈ', U'ㄵ'},
                                              {U'ㄴ', U'ㅎ', U'ㄶ'},
                                              {U'ㄹ', U'ㄱ', U'ㄺ'},
                                              {U'ㄹ', U'ㅁ', U'ㄻ'},
                                              {U'ㄹ', U'ㅂ', U'ㄼ'},
                                              {U'ㄹ', U'ㅅ', U'ㄽ'},
                                              {U'ㄹ', U'ㅌ', U'ㄾ'},
                                              {U'ㄹ', U'ㅍ', U'ㄿ'},
                                              {U'ㄹ', U'ㅎ', U'ㅀ'},
                                              {U'ㅂ', U'ㅅ', U'ㅄ'}}};

/// 0 where the two don't join.
char32_t joined(char32_t first, char32_t second) {
    for (const Joined& one : joinedSigns)
        if (one.first == first && one.second == second) return one.both;
    return 0;
}

bool isVowel(char32_t sign) {
    return sign >= firstVowel && sign <= lastVowel;
}

bool isConsonant(char32_t sign) {
    return sign >= U'ㄱ' && sign <= U'ㅎ';
}

/// Puts signs together as they are typed, one syllable in hand.
class Composer {
public:
    void type(char32_t sign) {
        if (isVowel(sign)) {
            vowel(sign);
        } else if (isConsonant(sign)) {
            consonant(sign);
        } else {
            finish();
            text_ += toUtf8(sign);
        }
    }
    std::string take() {
        finish();
        return std::move(text_);
    }

private:
    void consonant(char32_t sign) {
        const bool open = initial_ && vowel_ && !second_;
        if (open && final_ == 0 && finalSigns.find(sign) != std::u32string_view::npos) {
            final_ = sign;
        } else if (open && final_ != 0 && joined(final_, sign) != 0) {
            second_ = sign;
        } else {
            finish();
            initial_ = sign;
        }
    }
    /// A final consonant belongs to the vowel that follows it.
    void vowel(char32_t sign) {
        const char32_t moved = second_ ? second_ : final_;
        if (moved) {
            (second_ ? second_ : final_) = 0;
            finish();
            initial_ = moved;
            vowel_ = sign;
        } else if (vowel_ == 0) {
            vowel_ = sign;
        } else if (const char32_t both = joined(vowel_, sign)) {
            vowel_ = both;
        } else {
            finish();
            vowel_ = sign;
        }
    }
    void finish() {
        if (initial_ && vowel_) {
            const char32_t last = second_ ? joined(final_, second_) : final_;
            const char32_t code =
                (static_cast<char32_t>(initialSigns.find(initial_)) * vowels + (vowel_ - firstVowel)) *
                    finals +
                (last ? static_cast<char32_t>(finalSigns.find(last)) + 1 : 0);
            text_ += toUtf8(firstSyllable + code);
        } else if (initial_ || vowel_) {
            text_ += toUtf8(initial_ ? initial_ : vowel_);
        }
        initial_ = vowel_ = final_ = second_ = 0;
    }

    std::string text_;
    char32_t initial_ = 0, vowel_ = 0, final_ = 0, second_ = 0;
};

/// Whether a character of a text may be what is being typed.
bool isTyped(char32_t character, char32_t typed) {
    if (character == typed) return true;
    if (!isSyllable(character)) return false;
    if (isConsonant(typed)) return initialOf(character) == typed;
    const bool open = isSyllable(typed) && (typed - firstSyllable) % finals == 0;
    return open && (character - firstSyllable) / finals == (typed - firstSyllable) / finals;
}

std::u32string charactersOf(std::string_view text) {
    std::u32string characters;
    for (std::size_t at = 0; at < text.size();) {
        characters += characterAt(text, at);
        at += toUtf8(characters.back()).size();
    }
    return characters;
}

}  // namespace

bool isSyllable(char32_t character) {
    return character >= firstSyllable && character <= lastSyllable;
}

char32_t initialOf(char32_t character) {
    return isSyllable(character) ? initialSigns[(character - firstSyllable) / (vowels * finals)] : character;
}

std::string hangulOfKeys(std::string_view latin) {
    Composer composer;
    for (const char32_t character : charactersOf(latin)) {
        std::size_t key = character < 128 ? keys.find(static_cast<char>(character)) : std::string_view::npos;
        if (key == std::string_view::npos && character >= U'A' && character <= U'Z')
            key = keys.find(static_cast<char>(character - U'A' + U'a'));
        composer.type(key == std::string_view::npos ? character : signs[key]);
    }
    return composer.take();
}

std::size_t findTyped(std::string_view text, std::string_view typed) {
    const std::u32string in = charactersOf(foldCase(text)), what = charactersOf(foldCase(typed));
    for (std::size_t at = 0; at + what.size() <= in.size(); ++at) {
        std::size_t same = 0;
        while (same < what.size() && isTyped(in[at + same], what[same])) ++same;
        if (same == what.size()) return at;
    }
    return std::string_view::npos;
}

}  // namespace zelvo::basics
