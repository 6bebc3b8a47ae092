#include "tests/reference/plain_palette.h"

#include <cstring>
#include <memory>
#include <utility>

namespace tess::plain {

namespace {

constexpr int kNodesPerBlock = 1536;
constexpr std::uint32_t kNodeLimit = 266817;

struct ColorNode {
    double Count;
    double TotalRed, TotalGreen, TotalBlue;
    double Error;
    std::uint32_t PaletteIndex;
    std::uint8_t ChildId;
    std::uint8_t Level;
    std::uint8_t Census;
    ColorNode* Parent;
    ColorNode* Children[8];
};

struct NodeBlock {
    ColorNode Nodes[kNodesPerBlock] = {};
    std::unique_ptr<NodeBlock> Before;
};

struct ColorTree {
    ColorNode* Root = nullptr;
    int Depth = 0;
    int Colours = 0;
    std::uint8_t* OutPalette = nullptr;
    double PruningThreshold = 0;
    double NextPruningThreshold = 0;
    std::uint32_t NodeCount = 0;
    int FreeNodes = 0;
    ColorNode* NextNode = nullptr;
    std::unique_ptr<NodeBlock> Blocks;
};

ColorNode* NewNode(ColorTree& tree, int child_id, int level, ColorNode* parent) {
    if (tree.FreeNodes == 0) {
        auto block = std::make_unique<NodeBlock>();
        block->Before = std::move(tree.Blocks);
        tree.Blocks = std::move(block);
        tree.NextNode = tree.Blocks->Nodes;
        tree.FreeNodes = kNodesPerBlock;
    }
    ColorNode* node = tree.NextNode++;
    --tree.FreeNodes;
    ++tree.NodeCount;
    node->ChildId = static_cast<std::uint8_t>(child_id);
    node->Level = static_cast<std::uint8_t>(level);
    node->Parent = parent != nullptr ? parent : node;
    return node;
}

bool HasChild(const ColorNode* node, int id) {
    return ((node->Census >> id) & 1) != 0;
}

void Merge(ColorTree& tree, ColorNode* node) {
    ColorNode* parent = node->Parent;
    parent->Census = static_cast<std::uint8_t>(parent->Census & ~(1 << node->ChildId));
    parent->Count += node->Count;
    parent->TotalRed += node->TotalRed;
    parent->TotalGreen += node->TotalGreen;
    parent->TotalBlue += node->TotalBlue;
    --tree.NodeCount;
}

void PruneChild(ColorTree& tree, ColorNode* node) {
    for (int id = 0; id < 8; ++id) {
        if (HasChild(node, id)) PruneChild(tree, node->Children[id]);
    }
    Merge(tree, node);
}

void PruneLevel(ColorTree& tree, ColorNode* node) {
    for (int id = 0; id < 8; ++id) {
        if (HasChild(node, id)) PruneLevel(tree, node->Children[id]);
    }
    if (node->Level == tree.Depth) PruneChild(tree, node);
}

void ReduceNode(ColorTree& tree, ColorNode* node) {
    for (int id = 0; id < 8; ++id) {
        if (HasChild(node, id)) ReduceNode(tree, node->Children[id]);
    }
    if (tree.PruningThreshold >= node->Error) {
        PruneChild(tree, node);
        return;
    }
    if (node->Count > 0) ++tree.Colours;
    if (tree.NextPruningThreshold > node->Error) tree.NextPruningThreshold = node->Error;
}

void ReduceTree(ColorTree& tree, int target) {
    tree.NextPruningThreshold = 0;
    while (tree.Colours > target) {
        tree.PruningThreshold = tree.NextPruningThreshold;
        tree.NextPruningThreshold = tree.Root->Error - 1.0;
        tree.Colours = 0;
        ReduceNode(tree, tree.Root);
    }
}

void AssignColors(ColorTree& tree, ColorNode* node) {
    for (int id = 0; id < 8; ++id) {
        if (HasChild(node, id)) AssignColors(tree, node->Children[id]);
    }
    if (node->Count == 0) return;
    std::uint8_t* entry = tree.OutPalette + std::ptrdiff_t{3} * tree.Colours;
    entry[0] = static_cast<std::uint8_t>((node->Count * 0.5 + node->TotalRed) / node->Count);
    entry[1] = static_cast<std::uint8_t>((node->Count * 0.5 + node->TotalGreen) / node->Count);
    entry[2] = static_cast<std::uint8_t>((node->Count * 0.5 + node->TotalBlue) / node->Count);
    node->PaletteIndex = static_cast<std::uint32_t>(tree.Colours++);
}

void AddRun(ColorTree& tree, const std::uint8_t* pixel, double n) {
    const int blue = pixel[0];
    const int green = pixel[1];
    const int red = pixel[2];
    ColorNode* node = tree.Root;
    double half = 128.0;
    double mid_red = 127.5;
    double mid_green = 127.5;
    double mid_blue = 127.5;
    for (int level = 1, shift = 7; level <= tree.Depth; ++level, --shift) {
        half *= 0.5;
        const int red_bit = (red >> shift) & 1;
        const int green_bit = (green >> shift) & 1;
        const int blue_bit = (blue >> shift) & 1;
        const int id = red_bit << 2 | green_bit << 1 | blue_bit;
        mid_red += red_bit != 0 ? half : -half;
        mid_green += green_bit != 0 ? half : -half;
        mid_blue += blue_bit != 0 ? half : -half;
        if (!HasChild(node, id)) {
            node->Census = static_cast<std::uint8_t>(node->Census | 1 << id);
            node->Children[id] = NewNode(tree, id, level, node);
            if (level == tree.Depth) ++tree.Colours;
        }
        node = node->Children[id];
        const double dr = red - mid_red;
        const double dg = green - mid_green;
        const double db = blue - mid_blue;
        node->Error += n * (dr * dr + dg * dg + db * db);
        tree.Root->Error += node->Error;
    }
    node->Count += n;
    node->TotalRed += n * red;
    node->TotalGreen += n * green;
    node->TotalBlue += n * blue;
}

void AddImageToTree(ColorTree& tree, const PackedDib* image) {
    for (int y = image->Height - 1; y >= 0; --y) {
        if (tree.NodeCount > kNodeLimit) {
            PruneLevel(tree, tree.Root);
            --tree.Depth;
        }
        const std::uint8_t* row = DibRow(image, y);
        int x = 0;
        while (x < image->Width) {
            const std::uint8_t* pixel = row + std::ptrdiff_t{3} * x;
            int n = 1;
            while (x + n < image->Width &&
                   std::memcmp(pixel, pixel + std::ptrdiff_t{3} * n, 3) == 0) {
                ++n;
            }
            AddRun(tree, pixel, n);
            x += n;
        }
    }
}

struct UniqueTable {
    std::uint8_t Colors[kPaletteBytes] = {};
    std::int64_t Count = 0;
};

void GatherUnique(UniqueTable& table, const PackedDib* image) {
    for (int y = 0; y < image->Height; ++y) {
        for (int x = 0; x < image->Width; ++x) {
            if (table.Count >= kPaletteEntries) {
                ++table.Count;
                continue;
            }
            const ColorWord color = GetDibPixel(image, x, y);
            const std::uint8_t wanted[3] = {RedOf(color), GreenOf(color), BlueOf(color)};
            std::int64_t i = 0;
            while (i < table.Count && std::memcmp(table.Colors + 3 * i, wanted, 3) != 0)
                ++i;
            if (i < table.Count) continue;
            std::memcpy(table.Colors + 3 * i, wanted, 3);
            ++table.Count;
        }
    }
}

}  // namespace

int NearestColor(int red, int green, int blue, const std::uint8_t* palette, int count) {
    for (int i = 0; i < count; ++i) {
        const std::uint8_t* entry = palette + std::ptrdiff_t{3} * i;
        if (entry[0] == red && entry[1] == green && entry[2] == blue) return i;
    }
    int nearest = 0;
    int least = -1;
    for (int i = 0; i < count; ++i) {
        const std::uint8_t* entry = palette + std::ptrdiff_t{3} * i;
        const int dr = red - entry[0];
        const int dg = green - entry[1];
        const int db = blue - entry[2];
        const int distance = 3 * dr * dr + 4 * dg * dg + 2 * db * db;
        if (least < 0 || distance < least) {
            least = distance;
            nearest = i;
        }
    }
    return nearest;
}

int QuantizeFrames(int* count, std::uint8_t* palette, const FrameList* frames) {
    std::memset(palette, 0, kPaletteBytes);
    UniqueTable unique;
    int target = *count;
    if (target == 0 || target > kPaletteEntries) target = kPaletteEntries;
    ColorTree tree;
    for (int rest = target; rest != 0; rest >>= 2)
        ++tree.Depth;
    if (tree.Depth < 2) tree.Depth = 2;
    if (tree.Depth > 8) tree.Depth = 8;
    tree.Root = NewNode(tree, 0, 0, nullptr);
    const platform::LockedBlock<FrameRecord> records(frames->Records);
    for (std::int32_t i = 0; i < frames->Count; ++i) {
        const LockedImage image(records.Get()[i].Image);
        if (!image) return 0;
        GatherUnique(unique, image.Get());
        AddImageToTree(tree, image.Get());
    }
    if (unique.Count <= target) {
        std::memcpy(palette, unique.Colors, kPaletteBytes);
        *count = static_cast<int>(unique.Count);
        return 1;
    }
    ReduceTree(tree, target);
    tree.Colours = 0;
    tree.OutPalette = palette;
    AssignColors(tree, tree.Root);
    *count = tree.Colours;
    return 1;
}

}  // namespace tess::plain
