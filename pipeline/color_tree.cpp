// Colour quantization with an octree (after M. Gervautz and W. Purgathofer, "A
// Simple Method for Color Quantization: Octree Quantization", 1988), pruned by
// error.
//
// The tree as it is defined. Every pixel walks down from the root; at each level
// one bit of red, green and blue, highest first, chooses one of eight children, to
// the depth that the wanted number of colours sets. Each node that it passes adds
// the squared distance of the pixel to the centre of the node's cell to its error.
// The pixel is counted at the bottom. Then come rounds with a rising threshold: a
// round visits the nodes that stand, children before parents, merges those with an
// error not above the threshold into their parents, together with all below them,
// and counts the visited others that hold pixels of their own. The next threshold
// is the smallest error above the last one among the nodes visited. The rounds end
// when the count is not above the wanted one. What stands gives the palette,
// children before parents, each entry the mean of a node's own pixels.
//
// How it is kept here. Centres are odd multiples of one half down to the seventh
// level, so that all errors are whole numbers of quarters and all sums are exact,
// in whatever order they are made. So the pixels are gathered as moments (count,
// sums, sum of squares) in the 32 x 32 x 32 cells of the deepest level, and each
// node's moments and error follow from those of its children.
//
// The rounds are not run over the tree either: with the nodes sorted by error each
// round touches only those that it prunes. What has to be kept of the visiting:
// - a node below one that is pruned in the same round is visited all the same, so
//   it counts once more and its error is the next threshold if it is the smallest;
//   it is gone from the round after;
// - a node above the deepest level has pixels of its own from the time when a
//   child of it is pruned.
// The root's error is the sum of its descendants' errors, added up as they grow.
// With two leaves or more it is above every other error by more than one, so the
// root is never pruned and never sets a threshold, and the sum need not be made.
//
// The sums stay exact up to 2^37 pixels, more than 400 GB of frames.
#include "pipeline/color_tree.h"

#include <algorithm>
#include <cstring>

#include "pipeline/pixel_rows.h"
#include "pipeline/unique_colors.h"
#include "platform/block_guards.h"

namespace tess {

namespace {

constexpr int kMaximumDepth = 5;  // for 256 colours
constexpr int kMinimumDepth = 2;
constexpr int kCells = 1 << (3 * kMaximumDepth);

/// The number of nodes above level `level` of a whole tree: the nodes lie level
/// by level, each level in the order of the paths from the root.
constexpr int LevelStart(int level) {
    return ((1 << (3 * level)) - 1) / 7;
}

/// Trees that may outgrow this would have to give up their deepest level while
/// they are filled. A whole tree of the greatest depth does not.
constexpr int kNodeLimit = 266817;
static_assert(LevelStart(kMaximumDepth + 1) <= kNodeLimit);

/// Sums over pixels. Zero for no pixels.
struct Moments {
    std::int64_t Count;
    std::int64_t TotalRed, TotalGreen, TotalBlue;
    std::int64_t Squares;  // of all three channels

    void Add(const Moments& other) {
        Count += other.Count;
        TotalRed += other.TotalRed;
        TotalGreen += other.TotalGreen;
        TotalBlue += other.TotalBlue;
        Squares += other.Squares;
    }
    void Subtract(const Moments& other) {
        Count -= other.Count;
        TotalRed -= other.TotalRed;
        TotalGreen -= other.TotalGreen;
        TotalBlue -= other.TotalBlue;
    }
};

struct ColorNode {
    Moments Below;       // of all pixels that passed the node; a count of 0: no such node
    std::int64_t Error;  // in quarters
    bool HoldsPixels;    // its own: at the deepest level, or of pruned children
    bool Pruned;         // its error is not above the threshold
    bool Gone;           // below one that was pruned in a round before

    [[nodiscard]] bool Exists() const { return Below.Count != 0; }
    [[nodiscard]] bool Counts() const { return HoldsPixels && !Pruned && !Gone; }
};

struct NodeByError {
    std::int64_t Error;
    std::int32_t Node;
};

void AddRun(Moments& cell, const std::uint8_t* pixel, std::int64_t count) {
    const std::int64_t blue = pixel[0];
    const std::int64_t green = pixel[1];
    const std::int64_t red = pixel[2];
    cell.Count += count;
    cell.TotalRed += count * red;
    cell.TotalGreen += count * green;
    cell.TotalBlue += count * blue;
    cell.Squares += count * (red * red + green * green + blue * blue);
}

/// Cells are numbered by the upper five bits of red, green, blue.
void AddImageToCells(const PackedDib* image, Moments* cells) {
    for (int y = 0; y < image->Height; ++y) {
        const std::uint8_t* pixel = DibRow(image, y);
        const std::uint8_t* end = pixel + std::ptrdiff_t{3} * image->Width;
        const bool is_one_run = IsOneColorRow(pixel, image->Width);
        while (pixel != end) {
            const std::uint8_t* run = pixel;
            if (is_one_run) {
                pixel = end;
            } else {
                do {
                    pixel += 3;
                } while (pixel != end && std::memcmp(pixel, run, 3) == 0);
            }
            const int cell = (run[2] >> 3) << 10 | (run[1] >> 3) << 5 | run[0] >> 3;
            AddRun(cells[cell], run, (pixel - run) / 3);
        }
    }
}

/// Moves bit k to bit 3 k, for five bits.
constexpr int SpreadBits(int value) {
    int spread = 0;
    for (int bit = 0; bit < kMaximumDepth; ++bit)
        spread |= ((value >> bit) & 1) << (3 * bit);
    return spread;
}

/// The path from the root to a cell: three bits a level, red the highest of them.
constexpr int PathOf(int red, int green, int blue) {
    return SpreadBits(red) << 2 | SpreadBits(green) << 1 | SpreadBits(blue);
}

/// The sum of the squared distances to the centre of cell (red, green, blue) of
/// `level`, in quarters.
std::int64_t ErrorInQuarters(const Moments& pixels, int level, int red, int green, int blue) {
    const auto twice_centre = [level](int cell) {
        const int size = 1 << (8 - level);
        return std::int64_t{2} * cell * size + size - 1;
    };
    const std::int64_t r = twice_centre(red);
    const std::int64_t g = twice_centre(green);
    const std::int64_t b = twice_centre(blue);
    return 4 * pixels.Squares -
           4 * (r * pixels.TotalRed + g * pixels.TotalGreen + b * pixels.TotalBlue) +
           pixels.Count * (r * r + g * g + b * b);
}

class ColorTree {
public:
    explicit ColorTree(int depth)
        : depth_(depth),
          cells_(kCells),
          nodes_(static_cast<std::size_t>(LevelStart(depth + 1))),
          order_(static_cast<std::size_t>(LevelStart(depth + 1))) {}
    explicit operator bool() const { return cells_ && nodes_ && order_; }

    void AddImage(const PackedDib* image) { AddImageToCells(image, cells_.data()); }
    void Reduce(int target);
    /// Writes the palette and returns the number of its colours.
    int AssignColors(std::uint8_t* palette);

private:
    void FillDeepestLevel();
    void FillNodes();
    void MeasureLevel(int level);
    void SortNodes();
    void Prune(std::int32_t node);
    void RemoveAllBelow(std::int32_t node);
    void AssignNode(int level, int path, std::uint8_t* palette);
    ColorNode& NodeAt(int level, int path) {
        return nodes_[static_cast<std::size_t>(LevelStart(level) + path)];
    }
    ColorNode& NodeAt(std::int32_t node) { return nodes_[static_cast<std::size_t>(node)]; }

    int depth_;
    platform::WorkArray<Moments> cells_;
    platform::WorkArray<ColorNode> nodes_;
    platform::WorkArray<NodeByError> order_;  // all but the root, after SortNodes
    std::size_t sorted_ = 0;
    int colors_ = 0;
};

void ColorTree::FillDeepestLevel() {
    const int cut = 3 * (kMaximumDepth - depth_);
    const Moments* cell = cells_.data();
    for (int red = 0; red < 32; ++red) {
        for (int green = 0; green < 32; ++green) {
            for (int blue = 0; blue < 32; ++blue, ++cell) {
                if (cell->Count == 0) continue;
                ColorNode& node = NodeAt(depth_, PathOf(red, green, blue) >> cut);
                node.Below.Add(*cell);
                if (!node.HoldsPixels) ++colors_;
                node.HoldsPixels = true;
            }
        }
    }
}

void ColorTree::FillNodes() {
    FillDeepestLevel();
    for (int level = depth_; level > 0; --level) {
        MeasureLevel(level);
        for (int path = 0; path < 1 << (3 * level); ++path) {
            NodeAt(level - 1, path >> 3).Below.Add(NodeAt(level, path).Below);
        }
    }
}

void ColorTree::MeasureLevel(int level) {
    const int side = 1 << level;
    for (int red = 0; red < side; ++red) {
        for (int green = 0; green < side; ++green) {
            for (int blue = 0; blue < side; ++blue) {
                ColorNode& node = NodeAt(level, PathOf(red, green, blue));
                node.Error = ErrorInQuarters(node.Below, level, red, green, blue);
            }
        }
    }
}

void ColorTree::SortNodes() {
    for (std::int32_t node = 1; node < LevelStart(depth_ + 1); ++node) {
        if (NodeAt(node).Exists()) order_[sorted_++] = {NodeAt(node).Error, node};
    }
    std::sort(order_.begin(), order_.begin() + sorted_,
              [](const NodeByError& a, const NodeByError& b) { return a.Error < b.Error; });
}

/// Merges a node into its parent, as far as the count of colours is concerned.
void ColorTree::Prune(std::int32_t node) {
    if (NodeAt(node).Counts()) --colors_;
    NodeAt(node).Pruned = true;
    ColorNode& parent = NodeAt((node - 1) / 8);
    if (parent.HoldsPixels) return;
    parent.HoldsPixels = true;
    if (parent.Counts()) ++colors_;
}

void ColorTree::RemoveAllBelow(std::int32_t node) {
    NodeAt(node).Gone = true;
    // The children of the deepest level would lie behind the last node.
    if (node >= LevelStart(depth_)) return;
    for (std::int32_t child = 8 * node + 1; child <= 8 * node + 8; ++child) {
        if (!NodeAt(child).Exists() || NodeAt(child).Gone) continue;
        if (NodeAt(child).Counts()) --colors_;
        RemoveAllBelow(child);
    }
}

/// Merges until the count of a round is not above `target`. The first round, with
/// a threshold of 0, prunes nothing, since no error is as small.
void ColorTree::Reduce(int target) {
    FillNodes();
    if (colors_ <= target) return;
    SortNodes();
    std::size_t next = 0;          // the first node not pruned or passed over yet
    std::size_t pruned_first = 0;  // where the last round's pruned nodes begin
    while (colors_ > target) {
        while (next < sorted_ && NodeAt(order_[next].Node).Gone)
            ++next;
        if (next == sorted_) break;
        const std::int64_t threshold = order_[next].Error;
        for (; pruned_first < next; ++pruned_first) {
            const std::int32_t node = order_[pruned_first].Node;
            if (NodeAt(node).Pruned) RemoveAllBelow(node);
        }
        for (; next < sorted_ && order_[next].Error <= threshold; ++next) {
            if (!NodeAt(order_[next].Node).Gone) Prune(order_[next].Node);
        }
    }
}

void ColorTree::AssignNode(int level, int path, std::uint8_t* palette) {
    Moments own = NodeAt(level, path).Below;
    for (int id = 0; level < depth_ && id < 8; ++id) {
        const ColorNode& child = NodeAt(level + 1, path << 3 | id);
        if (!child.Exists() || child.Pruned) continue;
        AssignNode(level + 1, path << 3 | id, palette);
        own.Subtract(child.Below);
    }
    if (own.Count == 0) return;
    const auto count = static_cast<double>(own.Count);
    const auto mean = [count](std::int64_t total) {
        return static_cast<std::uint8_t>((count * 0.5 + static_cast<double>(total)) / count);
    };
    std::uint8_t* entry = palette + std::ptrdiff_t{3} * colors_++;
    entry[0] = mean(own.TotalRed);
    entry[1] = mean(own.TotalGreen);
    entry[2] = mean(own.TotalBlue);
}

int ColorTree::AssignColors(std::uint8_t* palette) {
    colors_ = 0;
    AssignNode(0, 0, palette);
    return colors_;
}

/// floor(log4(target)) + 1.
int DepthFor(int target) {
    int depth = 0;
    for (; target > 0; target >>= 2)
        ++depth;
    return std::clamp(depth, kMinimumDepth, kMaximumDepth);
}

}  // namespace

int QuantizeFrames(int* count, std::uint8_t* palette, const FrameList* frames) {
    std::memset(palette, 0, kPaletteBytes);
    const int target = *count < 1 || *count > kPaletteEntries ? kPaletteEntries : *count;
    ColorTree tree(DepthFor(target));
    if (!tree) return 0;
    UniqueColors unique;
    const platform::LockedBlock<FrameRecord> records(frames->Records);
    if (!records && frames->Count > 0) return 0;
    for (std::int32_t i = 0; i < frames->Count; ++i) {
        const LockedImage image(records.Get()[i].Image);
        if (!image || image->BitCount != 24) return 0;
        unique.Gather(image.Get());
        tree.AddImage(image.Get());
    }
    if (unique.Count() <= target) {
        unique.Write(palette);
        *count = unique.Count();
        return 1;
    }
    tree.Reduce(target);
    *count = tree.AssignColors(palette);
    return 1;
}

}  // namespace tess
