#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::console {

struct Line {
    int number = 0;
    std::string text;
};

/// The commands of a script, one a line; blank lines and comments are passed over.
class Script {
public:
    /// `name` stands in front of the line numbers of what is reported. A prompt, where there is one, is
    /// written before each line is read.
    Script(std::istream& in, std::string name, std::ostream* prompt = nullptr);

    /// The next command; nothing at the end of the script.
    std::optional<Line> next();
    const std::string& name() const { return name_; }
    /// Line that was read last, from 1.
    int lineNumber() const { return number_; }
    /// A person types the commands.
    bool interactive() const { return prompt_ != nullptr; }

private:
    std::istream& in_;
    std::string name_;
    std::ostream* prompt_;
    int number_ = 0;
};

/// Takes the words of a command from left to right. A word in double quotes may hold blanks, and \" \\ \n \r
/// \t in it. All throw UnreadableError for quotes that don't end, and for a word that is missing or of
/// another kind.
class WordReader {
public:
    explicit WordReader(std::string_view line) : line_(line) {}

    bool atEnd();
    std::string word(const char* what);
    /// The last word: in quotes, or as it stands up to the line's end.
    std::string lastWord(const char* what);
    std::vector<std::string> allWords();
    int number(const char* what);
    /// One of two words; true for the first.
    bool either(const char* first, const char* second);
    /// Nothing may follow.
    void end();

private:
    std::string quoted();
    void skipBlanks();

    std::string_view line_;
    std::size_t at_ = 0;
};

}  // namespace zelvo::console
