// The trash of desktops as freedesktop.org's Trash Specification 1.0 has it: the file
// in Trash/files, and under the same name in Trash/info where it came from and when.

#include <cstdio>
#include <ctime>
#include <filesystem>

#include "platform/file_calls.h"
#include "platform/file_system.h"
#include "platform/files.h"

namespace platform {

namespace {

namespace fs = std::filesystem;

/// The path as an address has it: all but letters, digits and a few marks as "%2F".
std::string Escape(const std::string& path) {
    constexpr std::string_view kKept = "/-_.~";
    std::string escaped;
    for (const char letter : path) {
        const auto byte = static_cast<unsigned char>(letter);
        const bool is_plain = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                              (byte >= 'a' && byte <= 'z');
        if (is_plain || kKept.find(letter) != std::string_view::npos) {
            escaped += letter;
        } else {
            char digits[4];
            std::snprintf(digits, sizeof digits, "%%%02X", byte);
            escaped += digits;
        }
    }
    return escaped;
}

std::string TimeOfDeletion() {
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    localtime_r(&now, &local);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &local);
    return text;
}

int WriteInfo(const fs::path& info, const fs::path& from) {
    NewFile file(info.string(), FileMode::Text);
    if (!file) return 0;
    std::fprintf(file.Stream(), "[Trash Info]\nPath=%s\nDeletionDate=%s\n",
                 Escape(from.string()).c_str(), TimeOfDeletion().c_str());
    return file.Commit();
}

}  // namespace

int MoveToRecycleBin(std::string_view path) {
    std::error_code failure;
    const fs::path from = fs::absolute(std::string(path), failure);
    const std::string data = ApplicationDataFolder();
    if (failure || data.empty() || !fs::is_regular_file(from, failure)) return 0;
    const fs::path trash = fs::path(data) / "Trash";
    fs::create_directories(trash / "files", failure);
    if (!failure) fs::create_directories(trash / "info", failure);
    if (failure) return 0;
    std::string name = from.filename().string();
    for (int number = 2; fs::exists(trash / "files" / name, failure); ++number) {
        name = from.stem().string() + "." + std::to_string(number) + from.extension().string();
    }
    const fs::path info = trash / "info" / (name + ".trashinfo");
    if (WriteInfo(info, from) == 0) return 0;
    const std::string target = (trash / "files" / name).string();
    if (CurrentFileCalls().Rename(from.c_str(), target.c_str()) == 0) {
        RemoveFile(info.string());
        return 0;
    }
    return 1;
}

}  // namespace platform
