#include "platform/list_box.h"

#include "tests/platform/added_control.h"
#include "tests/platform/dialog_fixture.h"

namespace {

using platform::WindowHandle;

constexpr int kList = 900;
constexpr std::uint32_t kSorted = 0x0002;      // LBS_SORT
constexpr std::uint32_t kNotifies = 0x0001;    // LBS_NOTIFY
constexpr std::uint32_t kOwnerDrawn = 0x0050;  // LBS_OWNERDRAWFIXED | LBS_HASSTRINGS

class ListBox : public DialogFixture {
protected:
    /// Does `action` with a list box of the style in a dialog.
    void WithList(std::uint32_t style, const Handler& action) {
        WithMainDialog([style, &action](WindowHandle dialog) {
            platform::test::AddControlTo(dialog, kList, "LISTBOX", style);
            action(dialog);
        });
    }
    static std::string Texts(WindowHandle dialog) {
        std::string texts;
        for (int i = 0; i < platform::ItemCount(dialog, kList); ++i)
            texts += platform::ItemText(dialog, kList, i) + " ";
        return texts;
    }
    static inline int first, second;
};

TEST_F(ListBox, EntriesCarryData) {
    WithList(0, [](WindowHandle dialog) {
        EXPECT_EQ(platform::AddListItem(dialog, kList, "b", &first), 0);
        EXPECT_EQ(platform::AddListItem(dialog, kList, "a", &second), 1);
        EXPECT_EQ(platform::ListItemData(dialog, kList, 0), &first);
        EXPECT_EQ(platform::ListItemData(dialog, kList, 1), &second);
        EXPECT_EQ(platform::ListItemData(dialog, kList, 2), nullptr);
    });
}

TEST_F(ListBox, OwnerDrawnListWithTextsKeepsBoth) {
    WithList(kOwnerDrawn, [](WindowHandle dialog) {
        platform::AddListItem(dialog, kList, "", &first);
        platform::AddListItem(dialog, kList, "named", &second);
        EXPECT_EQ(Texts(dialog), " named ");
        EXPECT_EQ(platform::ListItemData(dialog, kList, 0), &first);
    });
}

TEST_F(ListBox, SortedListKeepsTheOrderOfItsNames) {
    WithList(kSorted, [](WindowHandle dialog) {
        EXPECT_EQ(platform::AddListItem(dialog, kList, "marble", nullptr), 0);
        EXPECT_EQ(platform::AddListItem(dialog, kList, "Sand", nullptr), 1);
        EXPECT_EQ(platform::AddListItem(dialog, kList, "Bark", &first), 0);
        EXPECT_EQ(Texts(dialog), "Bark marble Sand ");
        EXPECT_EQ(platform::ListItemData(dialog, kList, 0), &first);
    });
}

TEST_F(ListBox, EntryIsInsertedBeforeAnother) {
    WithList(0, [](WindowHandle dialog) {
        platform::AddListItem(dialog, kList, "a", nullptr);
        EXPECT_EQ(platform::InsertListItem(dialog, kList, 0, "b", &first), 0);
        EXPECT_EQ(platform::InsertListItem(dialog, kList, 2, "c", nullptr), 2);
        EXPECT_EQ(platform::InsertListItem(dialog, kList, 4, "d", nullptr), -1);
        EXPECT_EQ(Texts(dialog), "b a c ");
        EXPECT_EQ(platform::ListItemData(dialog, kList, 0), &first);
    });
}

TEST_F(ListBox, DeletedEntryTakesItsSelectionAlong) {
    WithList(0, [](WindowHandle dialog) {
        for (const char* text : {"a", "b", "c"})
            platform::AddListItem(dialog, kList, text, nullptr);
        platform::SetSelection(dialog, kList, 1);
        platform::DeleteListItem(dialog, kList, 1);
        EXPECT_EQ(Texts(dialog), "a c ");
        EXPECT_EQ(platform::Selection(dialog, kList), -1);
    });
}

TEST_F(ListBox, SelectionStaysOnItsEntryWhenAnEarlierOneGoes) {
    WithList(0, [](WindowHandle dialog) {
        for (const char* text : {"a", "b", "c"})
            platform::AddListItem(dialog, kList, text, nullptr);
        platform::SetSelection(dialog, kList, 2);
        platform::DeleteListItem(dialog, kList, 0);
        EXPECT_EQ(platform::Selection(dialog, kList), 1);
        platform::DeleteListItem(dialog, kList, 7);  // which is none
        EXPECT_EQ(platform::ItemCount(dialog, kList), 2);
    });
}

TEST_F(ListBox, SelectionStaysOnItsEntryWhenOneComesBeforeIt) {
    WithList(0, [](WindowHandle dialog) {
        platform::AddListItem(dialog, kList, "a", nullptr);
        platform::SetSelection(dialog, kList, 0);
        platform::InsertListItem(dialog, kList, 0, "b", nullptr);
        EXPECT_EQ(platform::Selection(dialog, kList), 1);
    });
}

TEST_F(ListBox, DoubleClickSelectsAndTells) {
    WithList(kNotifies, [](WindowHandle dialog) {
        platform::AddListItem(dialog, kList, "a", nullptr);
        platform::DoubleClickItem(dialog, kList, 0);
        EXPECT_EQ(platform::Selection(dialog, kList), 0);
    });
    EXPECT_EQ(log, (std::vector<std::string>{"open", "900/1", "900/2", "destroy"}));
}

TEST_F(ListBox, PlaceIsInTheEntryThatCoversIt) {
    WithList(kOwnerDrawn, [](WindowHandle dialog) {
        platform::AddListItem(dialog, kList, "a", nullptr);
        platform::AddListItem(dialog, kList, "b", nullptr);
        platform::SetListItemSize(dialog, kList, {40, 15});
        EXPECT_EQ(platform::ListItemAt(dialog, kList, 3, 0), 0);
        EXPECT_EQ(platform::ListItemAt(dialog, kList, 3, 14), 0);
        EXPECT_EQ(platform::ListItemAt(dialog, kList, 3, 15), 1);
        EXPECT_EQ(platform::ListItemAt(dialog, kList, 3, 30), -1);
        EXPECT_EQ(platform::ListItemAt(dialog, kList, 3, -1), -1);
        EXPECT_EQ(platform::ListItemAt(dialog, kList, -1, 5), -1);
        EXPECT_EQ(platform::ListItemAt(dialog, kList, 90, 5), -1);
        EXPECT_EQ(platform::ListItemAt(dialog, 12345, 3, 5), -1);
    });
}

}  // namespace
