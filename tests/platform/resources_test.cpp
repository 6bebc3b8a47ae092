#include "platform/resources.h"

#include <gtest/gtest.h>
#include <set>

namespace {

using platform::DialogTemplate;
using platform::TemplateControl;

struct Box {
    int id, x, y, width, height;
};

TEST(Resources, MainDialogHasItsControlsInOrderAtTheirPlaces) {
    const Box expected[] = {
        {25, 8, 8, 164, 140},     {12, 184, 8, 64, 12},   {26, 256, 10, 25, 8},
        {11, 284, 8, 27, 12},     {10011, 311, 8, 9, 12}, {1, 336, 8, 50, 14},
        {2, 336, 28, 50, 14},     {9, 336, 48, 50, 14},   {24, 336, 68, 50, 14},
        {40, 336, 88, 50, 14},    {36, 336, 108, 50, 14}, {19, 260, 24, 72, 12},
        {20, 260, 36, 72, 12},    {15, 260, 48, 72, 12},  {14, 260, 60, 72, 12},
        {10, 260, 72, 72, 12},    {21, 260, 84, 72, 12},  {33, 260, 147, 124, 8},
        {58, 259, 156, 127, 200}, {34, 260, 172, 128, 8}, {13, 259, 181, 127, 92},
        {17, 288, 252, 38, 32},   {18, 336, 272, 50, 14},
    };
    const DialogTemplate* dialog = platform::FindDialogTemplate(1000);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->caption, "Tessellomatics #1");
    ASSERT_EQ(dialog->controls.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const TemplateControl& control = dialog->controls[i];
        EXPECT_EQ(control.id, expected[i].id);
        EXPECT_EQ(control.x, expected[i].x) << control.id;
        EXPECT_EQ(control.y, expected[i].y) << control.id;
        EXPECT_EQ(control.width, expected[i].width) << control.id;
        EXPECT_EQ(control.height, expected[i].height) << control.id;
    }
}

TEST(Resources, TextsOfTheMainDialogAreThere) {
    const DialogTemplate* dialog = platform::FindDialogTemplate(1000);
    EXPECT_EQ(dialog->controls[2].text, "Delay:");
    EXPECT_EQ(dialog->controls[4].text, "1,1000,10");
    EXPECT_EQ(dialog->controls[15].text, "Tr&ue color");
    EXPECT_EQ(dialog->controls[22].text, "A&bout");
}

TEST(Resources, MessageBoxesHaveTheirTextAndButtons) {
    const struct {
        const char* name;
        std::vector<int> ids;
    } boxes[] = {
        {"MESSAGEBOX", {101, 1}}, {"YESNOBOX", {101, 6, 7}}, {"YESNOCANCELBOX", {101, 6, 7, 2}}};
    for (const auto& box : boxes) {
        const DialogTemplate* dialog = platform::FindDialogTemplate(box.name);
        ASSERT_NE(dialog, nullptr) << box.name;
        std::vector<int> ids;
        for (const TemplateControl& control : dialog->controls)
            ids.push_back(control.id);
        EXPECT_EQ(ids, box.ids) << box.name;
    }
}

TEST(Resources, NamesAreFoundWithoutRegardToCase) {
    EXPECT_EQ(platform::FindDialogTemplate("messagebox"),
              platform::FindDialogTemplate("MESSAGEBOX"));
}

TEST(Resources, UnknownOnesAreNotFound) {
    EXPECT_EQ(platform::FindDialogTemplate(4321), nullptr);
    EXPECT_EQ(platform::FindDialogTemplate(0), nullptr);
    EXPECT_EQ(platform::FindDialogTemplate("1000"), nullptr);
    EXPECT_EQ(platform::FindDialogTemplate(""), nullptr);
    EXPECT_EQ(platform::FindString(16), "");
    EXPECT_TRUE(platform::FindData(270).empty());
    EXPECT_TRUE(platform::FindData("").empty());
    EXPECT_TRUE(platform::FindData("NOSUCHDATA").empty());
}

TEST(Resources, StringTableIsWhole) {
    EXPECT_EQ(platform::FindString(0), "Ok");
    EXPECT_EQ(platform::FindString(6), "Memory error");
    EXPECT_EQ(platform::FindString(12), "Too many colours");
    EXPECT_EQ(platform::FindString(15), "Library error");
    EXPECT_EQ(platform::FindString(1600), "Black and white");
    EXPECT_EQ(platform::FindString(1608), "256 gray levels");
    for (int id = 0; id < 16; ++id)
        EXPECT_NE(platform::FindString(id), "") << id;
    for (int id = 1600; id < 1609; ++id)
        EXPECT_NE(platform::FindString(id), "") << id;
}

class Panel : public testing::TestWithParam<int> {
protected:
    static constexpr int kClosedListHeight = 14;

    /// The box that a control covers while no list is open.
    static Box BoxOf(const TemplateControl& control) {
        const bool is_list = control.window_class == "COMBOBOX";
        return {control.id, control.x, control.y, control.width,
                is_list ? kClosedListHeight : control.height};
    }
    static bool Overlap(const Box& a, const Box& b) {
        return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
               b.y < a.y + a.height;
    }
    const DialogTemplate* panel_ = platform::FindDialogTemplate(GetParam());
};

TEST_P(Panel, CoversNeitherItselfNorTheMainDialog) {
    ASSERT_NE(panel_, nullptr);
    const DialogTemplate* main_dialog = platform::FindDialogTemplate(1000);
    for (std::size_t i = 0; i < panel_->controls.size(); ++i) {
        const Box box = BoxOf(panel_->controls[i]);
        EXPECT_GE(box.x, 8) << box.id;
        EXPECT_LE(box.x + box.width, 252) << box.id;
        EXPECT_LE(box.y + box.height, main_dialog->height) << box.id;
        for (const TemplateControl& other : main_dialog->controls) {
            EXPECT_FALSE(Overlap(box, BoxOf(other))) << box.id << " and " << other.id;
        }
        for (std::size_t j = 0; j < i; ++j) {
            const Box other = BoxOf(panel_->controls[j]);
            EXPECT_FALSE(Overlap(box, other)) << box.id << " and " << other.id;
        }
    }
}

TEST_P(Panel, UpDownFollowsItsEditAndTellsItsRange) {
    ASSERT_NE(panel_, nullptr);
    const auto controls = panel_->controls;
    for (std::size_t i = 0; i < controls.size(); ++i) {
        if (controls[i].window_class != "msctls_updown32") continue;
        ASSERT_GT(i, 0u);
        EXPECT_EQ(controls[i - 1].window_class, "EDIT");
        EXPECT_EQ(controls[i - 1].id + 10000, controls[i].id);
        int minimum = 1, maximum = 0, start = 0;
        EXPECT_EQ(std::sscanf(std::string(controls[i].text).c_str(), "%d,%d,%d", &minimum, &maximum,
                              &start),
                  3);
        EXPECT_LT(minimum, maximum) << controls[i].id;
    }
}

INSTANTIATE_TEST_SUITE_P(All, Panel, testing::Range(7400, 7420));

TEST(Resources, PanelsShareNoId) {
    std::set<int> ids;
    for (int panel = 7400; panel < 7420; ++panel) {
        const DialogTemplate* dialog = platform::FindDialogTemplate(panel);
        ASSERT_NE(dialog, nullptr) << panel;
        for (const TemplateControl& control : dialog->controls) {
            EXPECT_TRUE(ids.insert(control.id).second) << control.id << " in " << panel;
            const int plain = control.id > 10000 ? control.id - 10000 : control.id;
            EXPECT_GE(plain, 100);
            EXPECT_LE(plain, 1198);
        }
    }
}

}  // namespace
