// The words of a resource script, through its includes.
#pragma once

#include <string>
#include <vector>

namespace resource_compiler {

enum class TokenKind { Number, Word, String, Sign, End };

struct Token {
    TokenKind kind = TokenKind::End;
    std::string text;  ///< a string's with its escapes resolved
    long value = 0;
    std::string file;
    int line = 0;
};

/// "file:line: message", as compilers say it.
[[nodiscard]] std::string ErrorAt(const Token& token, const std::string& message);

/// Splits the script at `path` into tokens, an End last; an included script's
/// stand in place of the #include line. `#include <...>` is for the system's own
/// compiler and is passed over. Adds every file read to `files`. Returns false
/// with the error's text.
[[nodiscard]] bool ReadTokens(const std::string& path, std::vector<Token>* tokens,
                              std::vector<std::string>* files, std::string* error);

}  // namespace resource_compiler
