// shape_pictures FOLDER: writes a bitmap file of each kind of shape into the folder, to
// look at, and prints for each its size, covered area and extent.
#include <cstdio>
#include <string>

#include "tests/toolkit/shape_sprites/shape_requests.h"
#include "tests/toolkit/shape_sprites/text_target.h"

namespace tess::test {
namespace {

class Writer {
public:
    explicit Writer(std::string folder) : folder_(std::move(folder)) {}

    void Write(const std::string& name, const ShapeRequest& request) {
        const ShapePicture picture(request);
        if (!picture.IsThere()) {
            std::printf("%-28s no picture\n", name.c_str());
            failed_ = true;
            return;
        }
        const auto covered = picture.Covered();
        std::printf("%-28s %3d x %3d, covers %8.1f in %d,%d to %d,%d\n", name.c_str(),
                    picture.Width(), picture.Height(), picture.Area(), covered.left, covered.top,
                    covered.right, covered.bottom);
        Save(name, LockedImage(picture.Get()));
    }
    [[nodiscard]] bool HasFailed() const { return failed_; }

private:
    void Save(const std::string& name, const PackedDib* image) {
        std::FILE* file = std::fopen((folder_ + "/" + name + ".bmp").c_str(), "wb");
        if (file == nullptr) {
            failed_ = true;
            return;
        }
        const std::uint32_t size = 54 + image->ImageSize;
        const std::uint8_t head[14] = {'B',
                                       'M',
                                       static_cast<std::uint8_t>(size),
                                       static_cast<std::uint8_t>(size >> 8),
                                       static_cast<std::uint8_t>(size >> 16),
                                       static_cast<std::uint8_t>(size >> 24),
                                       0,
                                       0,
                                       0,
                                       0,
                                       54};
        const bool written = std::fwrite(head, sizeof head, 1, file) == 1 &&
                             std::fwrite(image, 40 + image->ImageSize, 1, file) == 1;
        if (std::fclose(file) != 0 || !written) failed_ = true;
    }

    std::string folder_;
    bool failed_ = false;
};

void WriteBoxes(Writer& writer) {
    for (const ShapeOp op : {ShapeOp::Ellipse, ShapeOp::Rectangle}) {
        const std::string kind = op == ShapeOp::Ellipse ? "ellipse" : "rectangle";
        ShapeRequest request = ShapeOfSize(op, 60, 40);
        request.FillColor = kGreen;
        writer.Write(kind + "-filled", request);
        request.OutlineColor = kRed;
        request.OutlineWidth = 1;
        writer.Write(kind + "-thin-outline", request);
        request.OutlineWidth = 8;
        writer.Write(kind + "-both", request);
        request.Smooth = 0;
        writer.Write(kind + "-both-unsmoothed", request);
        request.Smooth = 1;
        request.FillColor = kNoShapeColor;
        writer.Write(kind + "-outline", request);
    }
    for (const int percent : {20, 50, 100}) {
        ShapeRequest request = ShapeOfSize(ShapeOp::Rectangle, 60, 40);
        request.FillColor = kGreen;
        request.OutlineColor = kRed;
        request.OutlineWidth = 4;
        request.CornerPercent = percent;
        writer.Write("rounded-" + std::to_string(percent), request);
    }
}

void WriteLines(Writer& writer) {
    ShapeRequest request = LineFrom({10, 10}, {60, 40}, 9);
    request.LineCap = 0;
    writer.Write("line-round", request);
    request.LineCap = 1;
    writer.Write("line-flat", request);
    request.Smooth = 0;
    writer.Write("line-flat-unsmoothed", request);
    request.Smooth = 1;
    request.LineCap = kOwnLineCaps;
    for (const std::uint32_t cap : {0U, 1U, 2U, 3U, 0x10U, 0x11U, 0x12U, 0x13U, 0x14U}) {
        request.LineStartCap = 0;
        request.LineEndCap = cap;
        writer.Write("line-end-cap-" + std::to_string(cap), request);
        request.LineStartCap = cap;
        request.LineEndCap = 0;
        writer.Write("line-start-cap-" + std::to_string(cap), request);
    }
    request = LineFrom({0, 0}, {150, 0}, 40);
    request.LineCap = kOwnLineCaps;
    request.LineEndCap = 0x14;
    writer.Write("line-wide-arrow", request);
    request = LineFrom({0, 0}, {50, 0}, 0);
    writer.Write("line-width-0", request);
    request = LineFrom({20, 20}, {20, 20}, 10);
    writer.Write("line-no-length", request);
    request.LineCap = 0;
    writer.Write("line-no-length-round", request);
}

void WritePolygons(Writer& writer) {
    static constexpr platform::VectorPoint kStar[] = {
        {40, 8}, {58, 64}, {10, 29}, {70, 29}, {22, 64}};
    ShapeRequest request = ShapeOfSize(ShapeOp::Polygon, 72, 64);
    request.Points = kStar;
    request.PointCount = 5;
    request.PolygonFill = kGreen;
    writer.Write("polygon-filled", request);
    request.PolygonOutline = kRed;
    request.PolygonWidth = 6;
    writer.Write("polygon-both", request);
    request.PolygonFill = kNoShapeColor;
    writer.Write("polygon-outline", request);
    request.PointCount = 2;
    writer.Write("polygon-two-points", request);
}

void WriteGradients(Writer& writer) {
    for (const int angle : {0, 30, 45, 90, 135, 180, 270, -45}) {
        ShapeRequest request = GradientOfSize(ShapeGradientKind::Linear, 80, 40, kRed, kBlue);
        request.GradientAngle = angle;
        writer.Write("gradient-linear-" + std::to_string(angle), request);
    }
    for (const auto kind : {ShapeGradientKind::Ellipse, ShapeGradientKind::Rectangle}) {
        const std::string name =
            kind == ShapeGradientKind::Ellipse ? "gradient-ellipse" : "gradient-rectangle";
        ShapeRequest request = GradientOfSize(kind, 80, 40, kWhite, kBlue);
        writer.Write(name, request);
        request.CentreX = 50;
        request.CentreY = -50;
        writer.Write(name + "-off-centre", request);
        request.CentreX = 150;
        request.CentreY = 0;
        writer.Write(name + "-outside", request);
    }
}

void WriteTexts(Writer& writer) {
    const platform::LogFont font = TestFont(32);
    const TextTarget target(240, 60, font);
    ShapeRequest request = TextOn(target.Get(), "Tile \x80 \xC4y", ShapeTextMode::Sprite);
    request.TextSize = 36;
    request.TextOutline = 2;
    for (const int mode : {2, 3, 4}) {
        request.TextMode = static_cast<ShapeTextMode>(mode);
        const std::string name = "text-mode-" + std::to_string(mode);
        request.Smooth = 1;
        writer.Write(name, request);
        request.Smooth = 0;
        writer.Write(name + "-unsmoothed", request);
    }
    request.Smooth = 1;
    request.TextBold = request.TextItalic = request.TextUnderline = 1;
    writer.Write("text-mode-4-styled", request);
    request.TextMode = ShapeTextMode::Measure;
    static_cast<void>(RunShapeRequest(&request));
    std::printf("measured without a blank: %d x %d\n", request.TextWidth, request.TextHeight);
    request.Text = " ";
    static_cast<void>(RunShapeRequest(&request));
    std::printf("a blank: %d x %d\n", request.TextWidth, request.TextHeight);
}

int Run(const char* folder) {
    const StartedShapes shapes;
    Writer writer(folder);
    WriteBoxes(writer);
    WriteLines(writer);
    WritePolygons(writer);
    WriteGradients(writer);
    WriteTexts(writer);
    return writer.HasFailed() ? 1 : 0;
}

}  // namespace
}  // namespace tess::test

int main(int count, char** words) {
    if (count != 2) {
        std::fputs("usage: shape_pictures FOLDER\n", stderr);
        return 2;
    }
    return tess::test::Run(words[1]);
}
