// A reader trusts nothing: sizes are held against what is left of the file before
// memory is asked for, and a block is an element only if it is a whole picture. What
// is not "MTXi" is passed over by the size in its head and counts as an element
// where elements are counted, but is in no list.
#include "fills/matrix_group_file.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <string>
#include <utility>

#include "fills/group_list.h"
#include "fills/matrix_group_format.h"
#include "pipeline/picture_check.h"
#include "platform/block_guards.h"
#include "platform/files.h"

namespace tess {

char MatrixGroupFile[kMatrixGroupFileBytes] = "vorbelx1.mtx";

namespace {

using platform::LockedBlock;
using platform::OwnedBlock;

/// Walks the elements of a file.
class GroupReader {
public:
    explicit GroupReader(std::string_view path) : stream_(platform::OpenFile(path, "rb")) {
        if (stream_ == nullptr) return;
        const long end = std::fseek(stream_, 0, SEEK_END) == 0 ? std::ftell(stream_) : -1;
        std::rewind(stream_);
        left_ = end > 0 ? static_cast<std::size_t>(end) : 0;
    }
    GroupReader(const GroupReader&) = delete;
    GroupReader& operator=(const GroupReader&) = delete;
    ~GroupReader() {
        if (stream_ != nullptr) std::fclose(stream_);
    }

    explicit operator bool() const { return stream_ != nullptr; }

    [[nodiscard]] bool Read(void* target, std::size_t bytes) {
        if (bytes > left_ || std::fread(target, 1, bytes, stream_) != bytes) return false;
        left_ -= bytes;
        return true;
    }
    [[nodiscard]] bool ReadHead(MatrixGroupHead* head) {
        return Read(head, sizeof *head) &&
               std::memcmp(head->Magic, kMatrixGroupMagic, sizeof head->Magic) == 0;
    }
    [[nodiscard]] bool Skip(std::size_t bytes) {
        if (bytes > left_ || std::fseek(stream_, static_cast<long>(bytes), SEEK_CUR) != 0)
            return false;
        left_ -= bytes;
        return true;
    }
    /// The next `bytes` bytes as a picture, owned by the caller; null if they are none.
    [[nodiscard]] ImageHandle ReadPicture(std::size_t bytes) {
        if (bytes > left_) return nullptr;
        OwnedBlock block(platform::AllocateBlock(bytes));
        {
            const LockedBlock<std::uint8_t> image(block.Get());
            if (!image || !Read(image.Get(), bytes) || !IsWholePicture(image.Get(), bytes))
                return nullptr;
        }
        return block.Release();
    }

private:
    std::FILE* stream_;
    std::size_t left_ = 0;
};

bool IsElement(const MatrixElementHead& head) {
    return std::memcmp(head.Magic, kMatrixElementMagic, sizeof head.Magic) == 0;
}

bool WriteElement(std::FILE* stream, ImageHandle element, const void* picture) {
    const std::size_t bytes = platform::BlockSize(element);
    const MatrixElementHead head = MakeMatrixElementHead(static_cast<std::uint32_t>(bytes));
    return std::fwrite(&head, sizeof head, 1, stream) == 1 &&
           std::fwrite(picture, 1, bytes, stream) == bytes;
}

bool WriteGroup(std::FILE* stream, std::span<const ImageHandle> elements) {
    MatrixGroupHead head =
        MakeMatrixGroupHead(static_cast<std::uint32_t>(std::time(nullptr)), 0, true);
    if (std::fwrite(&head, sizeof head, 1, stream) != 1) return false;
    for (const ImageHandle element : elements) {
        const LockedBlock<const void> picture(element);
        if (!picture) continue;
        if (!WriteElement(stream, element, picture.Get())) return false;
        ++head.Count;
    }
    // Not by `rewind`: it writes what is still in the buffer, and forgets that this failed.
    return std::fseek(stream, 0, SEEK_SET) == 0 && std::fwrite(&head, sizeof head, 1, stream) == 1;
}

}  // namespace

ImageHandle MatrixGroup::Element(int index) const {
    if (index < 0 || index >= elements_.Count) return nullptr;
    const LockedBlock<const FrameRecord> records(elements_.Records);
    return records ? records.Get()[index].Image : nullptr;
}

ImageHandle MatrixGroup::Take(int index) {
    if (index < 0 || index >= elements_.Count) return nullptr;
    const LockedBlock<FrameRecord> records(elements_.Records);
    return records ? std::exchange(records.Get()[index].Image, nullptr) : nullptr;
}

int MatrixGroup::Add(ImageHandle element) {
    const FrameRecord record{element, nullptr, 0, -1};
    return FrameListAdd(&elements_, &record);
}

ImageHandle LoadMatrixElement(std::string_view path, int index) {
    GroupReader reader(path);
    MatrixGroupHead head;
    if (!reader || !reader.ReadHead(&head)) return nullptr;
    for (int number = 0; number < head.Count; ++number) {
        MatrixElementHead element;
        if (!reader.Read(&element, sizeof element)) return nullptr;
        if (number == index && IsElement(element)) return reader.ReadPicture(element.Bytes);
        if (!reader.Skip(element.Bytes)) return nullptr;
    }
    return nullptr;
}

GroupReading ReadMatrixGroup(std::string_view path, MatrixGroup* group) {
    GroupReader reader(path);
    if (!reader) return GroupReading::Missing;
    MatrixGroupHead head;
    if (!reader.ReadHead(&head)) return GroupReading::Damaged;
    group->IsWriteable = head.Writeable != 0;
    for (int number = 0; number < head.Count; ++number) {
        MatrixElementHead element;
        if (!reader.Read(&element, sizeof element)) return GroupReading::Damaged;
        if (!IsElement(element)) {
            if (!reader.Skip(element.Bytes)) return GroupReading::Damaged;
            continue;
        }
        OwnedBlock picture(reader.ReadPicture(element.Bytes));
        if (!picture || group->Add(picture.Get()) == 0) return GroupReading::Damaged;
        static_cast<void>(picture.Release());
    }
    return GroupReading::Whole;
}

int WriteMatrixGroup(std::string_view path, std::span<const ImageHandle> elements) {
    KeepGroupBackup(std::string(path));
    platform::NewFile file(path, platform::FileMode::Binary);
    if (!file || !WriteGroup(file.Stream(), elements)) return 0;
    return file.Commit();
}

}  // namespace tess
