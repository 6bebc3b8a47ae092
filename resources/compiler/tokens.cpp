#include "resources/compiler/tokens.h"

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace resource_compiler {

namespace {

constexpr std::size_t kMaximumDepth = 16;  // of includes: deeper is a circle

bool IsWordCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

/// A word may be the name of a file, without quotes.
bool IsFileNameCharacter(char c) {
    return IsWordCharacter(c) || c == '.' || c == '/';
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? "" : path.substr(0, slash + 1);
}

class Reader {
public:
    Reader(std::vector<Token>* tokens, std::vector<std::string>* files, std::string* error)
        : tokens_(tokens), files_(files), error_(error) {}

    bool ReadFile(const std::string& path, std::size_t depth) {
        std::ifstream stream(path, std::ios::binary);
        if (!stream) {
            *error_ = path + ": cannot be read";
            return false;
        }
        files_->push_back(path);
        std::ostringstream content;
        content << stream.rdbuf();
        return Split(path, content.str(), depth);
    }

private:
    bool Split(const std::string& path, const std::string& text, std::size_t depth) {
        int line = 1;
        for (std::size_t at = 0; at < text.size();) {
            const char c = text[at];
            Token token{TokenKind::Sign, std::string(1, c), 0, path, line};
            if (c == '\n') {
                ++line;
                ++at;
            } else if (std::isspace(static_cast<unsigned char>(c)) != 0) {
                ++at;
            } else if (text.compare(at, 2, "//") == 0) {
                at = text.find('\n', at);
            } else if (text.compare(at, 2, "/*") == 0) {
                if (!SkipComment(text, token, &at, &line)) return false;
            } else if (c == '#') {
                if (!ReadDirective(text, token, depth, &at)) return false;
            } else if (c == '"') {
                if (!ReadString(text, &token, &at)) return false;
                tokens_->push_back(token);
            } else if (std::isdigit(static_cast<unsigned char>(c)) != 0) {
                if (!ReadNumber(text, &token, &at)) return false;
                tokens_->push_back(token);
            } else if (IsWordCharacter(c)) {
                const std::size_t start = at;
                while (at < text.size() && IsFileNameCharacter(text[at]))
                    ++at;
                token.kind = TokenKind::Word;
                token.text = text.substr(start, at - start);
                tokens_->push_back(token);
            } else if (std::string(",|{}-").find(c) != std::string::npos) {
                tokens_->push_back(token);
                ++at;
            } else {
                return Fail(token, "unexpected character '" + token.text + "'");
            }
            if (at == std::string::npos) break;
        }
        if (depth == 0) tokens_->push_back({TokenKind::End, "end of file", 0, path, line});
        return true;
    }

    bool SkipComment(const std::string& text, const Token& token, std::size_t* at, int* line) {
        const std::size_t end = text.find("*/", *at + 2);
        if (end == std::string::npos) return Fail(token, "comment without end");
        for (; *at < end; ++*at) {
            if (text[*at] == '\n') ++*line;
        }
        *at = end + 2;
        return true;
    }

    bool ReadDirective(const std::string& text, const Token& token, std::size_t depth,
                       std::size_t* at) {
        const std::size_t end = text.find('\n', *at);
        std::istringstream directive(text.substr(*at, end - *at));
        *at = end;
        std::string word, name;
        directive >> word >> name;
        if (word != "#include" || name.size() < 3) {
            return Fail(token, "unknown directive '" + word + "'");
        }
        if (name.front() == '<') return true;
        if (name.front() != '"' || name.back() != '"') {
            return Fail(token, "#include needs a name in quotes");
        }
        if (depth + 1 == kMaximumDepth) return Fail(token, "includes nest too deep");
        const std::string path = FolderOf(token.file) + name.substr(1, name.size() - 2);
        if (ReadFile(path, depth + 1)) return true;
        if (*error_ == path + ": cannot be read") return Fail(token, *error_);
        return false;
    }

    bool ReadString(const std::string& text, Token* token, std::size_t* at) {
        token->kind = TokenKind::String;
        token->text.clear();
        for (++*at; *at < text.size() && text[*at] != '\n'; ++*at) {
            const char c = text[*at];
            const char next = *at + 1 < text.size() ? text[*at + 1] : '\n';
            if (c == '"' && next != '"') {
                ++*at;
                return true;
            }
            if (c == '"') {
                token->text += c;
                ++*at;
            } else if (c == '\\') {
                const std::size_t which = std::string("nrt\\").find(next);
                if (which == std::string::npos) {
                    return Fail(*token, std::string("unknown escape '\\") + next + "'");
                }
                token->text += "\n\r\t\\"[which];
                ++*at;
            } else {
                token->text += c;
            }
        }
        return Fail(*token, "string without end");
    }

    bool ReadNumber(const std::string& text, Token* token, std::size_t* at) {
        const std::size_t start = *at;
        while (*at < text.size() && IsWordCharacter(text[*at]))
            ++*at;
        token->kind = TokenKind::Number;
        token->text = text.substr(start, *at - start);
        const bool is_hexadecimal = token->text.starts_with("0x") || token->text.starts_with("0X");
        std::string digits = token->text;
        if (digits.back() == 'L') digits.pop_back();
        char* end = nullptr;
        token->value = std::strtol(digits.c_str(), &end, is_hexadecimal ? 16 : 10);
        return *end == '\0' || Fail(*token, "'" + token->text + "' is no number");
    }

    bool Fail(const Token& token, const std::string& message) {
        *error_ = ErrorAt(token, message);
        return false;
    }

    std::vector<Token>* tokens_;
    std::vector<std::string>* files_;
    std::string* error_;
};

}  // namespace

std::string ErrorAt(const Token& token, const std::string& message) {
    return token.file + ":" + std::to_string(token.line) + ": " + message;
}

bool ReadTokens(const std::string& path, std::vector<Token>* tokens,
                std::vector<std::string>* files, std::string* error) {
    return Reader(tokens, files, error).ReadFile(path, 0);
}

}  // namespace resource_compiler
