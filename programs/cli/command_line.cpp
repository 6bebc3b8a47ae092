#include "programs/cli/command_line.h"

#include <algorithm>

#include "programs/cli/command_table.h"

namespace tess {
namespace {

std::string Quoted(std::string_view text) {
    std::string quoted("'");
    return quoted.append(text).append("'");
}

std::string Dashed(std::string_view name) {
    std::string dashed("--");
    return dashed.append(name);
}

std::string HintAtHelp(const Request& request) {
    std::string hint = "; see 'tessellomatics ";
    if (request.Command != nullptr) hint += std::string(request.Command->Name) + " ";
    return hint + "--help'";
}

class Parser {
public:
    Parser(std::span<const std::string_view> words, Request* request)
        : words_(words), request_(*request) {}

    [[nodiscard]] std::string Parse() {
        FindTheCommand();
        while (error_.empty() && next_ < words_.size()) {
            const std::string_view word = words_[next_++];
            if (only_operands_ || word == "-" || !word.starts_with('-')) {
                TakeOperand(word);
            } else if (word == "--") {
                only_operands_ = true;
            } else if (word.starts_with("--")) {
                TakeLongOption(word.substr(2));
            } else {
                TakeLetters(word.substr(1));
            }
        }
        if (error_.empty() && !request_.Help && !request_.Version) CheckOperands();
        return error_;
    }

private:
    // Options of a command may stand before its name, so it is looked for first.
    void FindTheCommand() {
        for (std::size_t i = 0; i < words_.size() && request_.Command == nullptr; ++i) {
            if (words_[i] == "--") break;
            request_.Command = FindCommand(words_[i]);
            if (request_.Command != nullptr) command_word_ = i;
            // A word in this place that is neither is no command.
            if (request_.Command == nullptr && !words_[i].starts_with('-')) break;
        }
    }

    void TakeOperand(std::string_view word) {
        if (request_.Command == nullptr) {
            error_ = Quoted(word) + " is no command" + HintAtHelp(request_);
        } else if (next_ - 1 != command_word_) {
            request_.Operands.emplace_back(word);
        }
    }

    [[nodiscard]] bool IsOpen(const OptionRow& row) const {
        return row.Commands == kAllCommands ||
               (request_.Command != nullptr && (row.Commands & request_.Command->Bit) != 0);
    }

    void TakeLongOption(std::string_view text) {
        const std::size_t equals = text.find('=');
        const std::string_view name = text.substr(0, equals);
        for (const OptionRow& row : Options()) {
            if (name != row.Name || !IsOpen(row)) continue;
            const std::string shown = Dashed(name);
            if (equals != std::string_view::npos) {
                const std::string_view value = text.substr(equals + 1);
                if (row.Value == nullptr) {
                    error_ = shown + " takes no value";
                } else {
                    Apply(row, shown, value);
                }
            } else {
                ApplyWithNextWord(row, shown);
            }
            return;
        }
        error_ = "unknown option " + Quoted(Dashed(name)) + HintAtHelp(request_);
    }

    void TakeLetters(std::string_view letters) {
        while (error_.empty() && !letters.empty()) {
            const char letter = letters.front();
            letters.remove_prefix(1);
            const OptionRow* row = FindLetter(letter);
            const std::string shown{'-', letter};
            if (row == nullptr) {
                error_ = "unknown option " + Quoted(shown) + HintAtHelp(request_);
            } else if (row->Value != nullptr && !letters.empty()) {
                Apply(*row, shown, letters);
                return;
            } else {
                ApplyWithNextWord(*row, shown);
            }
        }
    }

    [[nodiscard]] const OptionRow* FindLetter(char letter) const {
        for (const OptionRow& row : Options()) {
            if (row.Letter == letter && IsOpen(row)) return &row;
        }
        return nullptr;
    }

    void ApplyWithNextWord(const OptionRow& row, const std::string& shown) {
        if (row.Value == nullptr) {
            Apply(row, shown, "");
        } else if (next_ < words_.size()) {
            Apply(row, shown, words_[next_++]);
        } else {
            error_ = shown + " needs a value: " + row.Takes;
        }
    }

    void Apply(const OptionRow& row, const std::string& shown, std::string_view value) {
        if (row.Apply(request_, value)) return;
        error_ = shown + ": " + Quoted(value) + " is not " + row.Takes;
    }

    void CheckOperands() {
        const CommandRow* command = request_.Command;
        if (command == nullptr) {
            error_ = "no command is given" + HintAtHelp(request_);
            return;
        }
        const std::vector<std::string>& operands = request_.Operands;
        const bool has_empty = std::find(operands.begin(), operands.end(), "") != operands.end();
        if (has_empty && command->MostOperands != 0) {
            error_ = std::string(command->Name) + ": '' is empty; it takes " + command->Operands;
            return;
        }
        const auto count = static_cast<int>(request_.Operands.size());
        if (count < command->LeastOperands) {
            error_ = std::string(command->Name) + " needs " + command->Operands;
        } else if (command->MostOperands >= 0 && count > command->MostOperands) {
            const auto extra = static_cast<std::size_t>(command->MostOperands);
            error_ = std::string(command->Name) + " has no use for " +
                     Quoted(request_.Operands[extra]) + HintAtHelp(request_);
        } else if (request_.Json && request_.Output == "-") {
            error_ = "--json and '-o -' both write to standard output";
        }
    }

    std::span<const std::string_view> words_;
    Request& request_;
    std::size_t next_ = 0;
    std::size_t command_word_ = static_cast<std::size_t>(-1);
    bool only_operands_ = false;
    std::string error_;
};

}  // namespace

std::string ParseCommandLine(std::span<const std::string_view> words, Request* request) {
    return Parser(words, request).Parse();
}

}  // namespace tess
