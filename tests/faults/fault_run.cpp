#include "tests/faults/fault_run.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>

#include "controls/current_host.h"
#include "fills/matrix_group_file.h"
#include "fills/texture_group_file.h"
#include "platform/browser.h"
#include "platform/memory.h"

namespace tess::test {

namespace {

namespace fs = std::filesystem;

/// A dialog that asks its user so often does not end.
constexpr int kMostQuestions = 100;

struct Tally {
    std::size_t cases = 0, allocations = 0, file_operations = 0;
    std::array<std::size_t, kFileOperations> counts{};

    [[nodiscard]] std::size_t Faults() const { return 2 * (allocations + file_operations); }
    void Add(const Tally& other) {
        cases += other.cases;
        allocations += other.allocations;
        file_operations += other.file_operations;
        for (std::size_t i = 0; i < kFileOperations; ++i)
            counts[i] += other.counts[i];
    }
};
std::map<std::string, Tally> tallies;

void PrintRow(const std::string& name, const Tally& tally) {
    std::printf("%-24s %5zu %6zu %6zu %7zu  |", name.c_str(), tally.cases, tally.allocations,
                tally.file_operations, tally.Faults());
    for (const std::size_t count : tally.counts)
        std::printf(" %5zu", count);
    std::printf("\n");
}

class PrintTally : public testing::Environment {
public:
    void TearDown() override {
        std::printf("%-24s %5s %6s %6s %7s  |  open  read write  seek close renam remov  list\n",
                    "", "cases", "alloc.", "files", "faults");
        Tally sum;
        for (const auto& [kind, tally] : tallies) {
            PrintRow(kind, tally);
            sum.Add(tally);
        }
        PrintRow("all", sum);
    }
};
const testing::Environment* const print_tally = testing::AddGlobalTestEnvironment(new PrintTally);

void Blank(std::string* bytes, std::size_t start, std::size_t count) {
    for (std::size_t i = start; i < start + count && i < bytes->size(); ++i)
        (*bytes)[i] = '-';
}

void BlankLine(std::string* bytes, const char* begin) {
    const std::size_t start = bytes->find(begin);
    if (start != std::string::npos) Blank(bytes, start, bytes->find('\n', start) - start);
}

std::string WithoutTimes(const fs::path& path, std::string bytes) {
    std::string name = path.filename().string();
    std::ranges::transform(name, name.begin(), [](unsigned char c) { return std::tolower(c); });
    if (name.find(".ini") != std::string::npos) BlankLine(&bytes, ";Last updated");
    if (name.find(".fft") != std::string::npos) BlankLine(&bytes, "UpdateTimeDate");
    if (name.find(".trashinfo") != std::string::npos) BlankLine(&bytes, "DeletionDate");
    if (name.find(".mtx") != std::string::npos || name.find(".fll") != std::string::npos)
        Blank(&bytes, 8, 4);
    return bytes;
}

bool IsSame(const FolderContents& one, const FolderContents& other, const std::string& name) {
    const auto in_one = one.find(name), in_other = other.find(name);
    if (in_one == one.end() || in_other == other.end())
        return in_one == one.end() && in_other == other.end();
    return in_one->second == in_other->second;
}

}  // namespace

FaultTest::FaultTest() {
    fs::create_directories(File(""));
    platform::SetUserFolder(folder_.Path());
    setenv("XDG_DATA_HOME", folder_.Path().c_str(), 1);
    platform::SuppressBrowser(true);
    platform::SetHeadlessUser(Answer, this);
    std::snprintf(MatrixGroupFile, sizeof MatrixGroupFile, "%s", kDefaultMatrixGroup);
    std::snprintf(TextureGroupFile, sizeof TextureGroupFile, "%s", kDefaultTextureGroup);
    services_ = {sizeof services_,
                 kHostVersion,
                 0,
                 0,
                 AnswerHost,
                 0,
                 HostDelayHundredths | HostTrueColor,
                 0};
    CurrentHost = &services_;
}

FaultTest::~FaultTest() {
    CurrentHost = nullptr;
    platform::SetHeadlessUser(nullptr, nullptr);
    platform::SuppressBrowser(false);
    platform::SetUserFolder("");
}

std::int64_t FaultTest::AnswerHost(TaskRecord*, std::int64_t, std::int64_t, std::int64_t) {
    return 1;
}

std::string FaultTest::File(const std::string& name) const {
    return folder_.File("Quorvenstadtholme/Tessellomatics 1/" + name);
}

void FaultTest::Put(const std::string& name, const std::string& bytes) const {
    std::ofstream(File(name), std::ios::binary) << bytes;
}

void FaultTest::Erase(const std::string& name) const {
    fs::remove(File(name));
}

FolderContents FaultTest::Contents() const {
    FolderContents contents;
    for (const auto& entry : fs::recursive_directory_iterator(folder_.Path())) {
        if (!entry.is_regular_file()) continue;
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        contents[fs::relative(entry.path(), folder_.Path()).string()] =
            WithoutTimes(entry.path(), bytes);
    }
    return contents;
}

void FaultTest::Answer(platform::WindowHandle dialog, void* context) {
    auto* test = static_cast<FaultTest*>(context);
    const std::string_view kind = platform::TemplateOf(dialog);
    if (kind == "MESSAGEBOX") {
        test->messages_.push_back(platform::ControlText(dialog, 101));
        return platform::PostCommand(dialog, 1);
    }
    if (kind == "YESNOBOX") return platform::PostCommand(dialog, 6);
    if (++test->questions_ > kMostQuestions || !test->user) {
        EXPECT_TRUE(test->user) << "an unexpected dialog " << kind;
        EXPECT_LE(test->questions_, kMostQuestions) << "dialog " << kind << " does not end";
        return platform::EndDialog(dialog, 0);
    }
    test->user(dialog);
}

void FaultTest::InMainDialog(const std::function<void(platform::WindowHandle)>& act) {
    bool has_acted = false;
    user = [&](platform::WindowHandle dialog) {
        if (!has_acted) {
            has_acted = true;
            act(dialog);
        }
        questions_ = 0;
        platform::EndDialog(dialog, 0);
    };
    RunMainDialog(nullptr, &services_);
}

void FaultTest::FailEverything(const FaultCase& fault_case) {
    SCOPED_TRACE(fault_case.kind);
    States states;
    if (fault_case.prepare) fault_case.prepare();
    states.before = Contents();
    messages_.clear();
    questions_ = 0;
    const std::size_t allocations = platform::CurrentMemoryUse().allocations;
    const FileUse use = CurrentFileUse();
    ASSERT_TRUE(fault_case.run()) << "without a fault";
    ASSERT_TRUE(messages_.empty()) << messages_.front();
    Tally tally{1,
                platform::CurrentMemoryUse().allocations - allocations,
                CurrentFileUse().Total() - use.Total(),
                {}};
    for (std::size_t i = 0; i < kFileOperations; ++i)
        tally.counts[i] = CurrentFileUse().counts[i] - use.counts[i];
    states.after = Contents();
    for (const auto* names : {&fault_case.writes, &fault_case.changes}) {
        for (const std::string& name : *names)
            ASSERT_FALSE(IsSame(states.before, states.after, name)) << name << " is not changed";
    }
    for (const bool for_ever : {false, true}) {
        for (std::size_t i = 1; i <= tally.allocations; ++i)
            RunWith(fault_case, {true, i, for_ever}, states);
        for (std::size_t i = 1; i <= tally.file_operations; ++i)
            RunWith(fault_case, {false, i, for_ever}, states);
        if (HasFailure()) break;
    }
    tallies[fault_case.kind].Add(tally);
}

void FaultTest::RunWith(const FaultCase& fault_case, const Fault& fault, const States& states) {
    SCOPED_TRACE(std::string(fault.is_allocation ? "allocation " : "file operation ") +
                 std::to_string(fault.number) + (fault.for_ever ? " and all later" : ""));
    // What an earlier run has left must not help this one.
    for (const auto& [name, bytes] : Contents()) {
        if (!states.before.contains(name)) fs::remove(folder_.File(name));
    }
    if (fault_case.prepare) fault_case.prepare();
    messages_.clear();
    questions_ = 0;
    const platform::MemoryUse memory = platform::CurrentMemoryUse();
    const std::size_t streams = CurrentFileUse().open_streams;
    if (fault.is_allocation) {
        platform::FailAllocation(fault.number, fault.for_ever);
    } else {
        FailFileOperation(fault.number, fault.for_ever);
    }
    const bool is_done = fault_case.run();
    platform::FailAllocation(0);
    FailFileOperation(0);
    const bool has_own = !fault.is_allocation && !fault_case.told_of_files.empty();
    CheckMessages(has_own ? fault_case.told_of_files : fault_case.told, is_done);
    CheckFiles(fault_case, is_done, states);
    if (fault_case.keeps_blocks) fault_case.prepare();
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, memory.live_blocks);
    EXPECT_EQ(platform::CurrentMemoryUse().live_bytes, memory.live_bytes);
    EXPECT_EQ(CurrentFileUse().open_streams, streams);
}

void FaultTest::CheckMessages(const std::vector<std::string>& told, bool is_done) const {
    for (const std::string& message : messages_)
        EXPECT_NE(std::ranges::find(told, message), told.end()) << message;
    if (is_done || told.empty()) {
        EXPECT_EQ(messages_, std::vector<std::string>{});
    } else {
        EXPECT_FALSE(messages_.empty()) << "a failure that is not told";
    }
}

void FaultTest::CheckFiles(const FaultCase& fault_case, bool is_done, const States& states) const {
    FolderContents contents = Contents();
    for (const auto& [name, bytes] : contents) {
        const bool is_known = states.before.contains(name) || states.after.contains(name);
        // Where even the removal fails, a temporary file stays.
        EXPECT_TRUE(is_known || CurrentFileUse().failed_to_remove) << name << " is left";
    }
    FolderContents known = states.before;
    known.insert(states.after.begin(), states.after.end());
    for (const auto& [name, bytes] : known) {
        if (IsSame(contents, states.before, name) || IsSame(contents, states.after, name)) continue;
        EXPECT_TRUE(contents.contains(name)) << name << " is lost";
        EXPECT_TRUE(fault_case.is_whole && fault_case.is_whole(name, contents[name]))
            << name << " is neither old nor new: " << contents[name].size() << " bytes";
    }
    for (const std::string& name : fault_case.writes)
        EXPECT_TRUE(IsSame(contents, is_done ? states.after : states.before, name))
            << name << " is not " << (is_done ? "new, but it was done" : "old, but it failed");
}

}  // namespace tess::test
