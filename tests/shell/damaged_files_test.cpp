// Configurations and documents that are empty, cut off, damaged or of any bytes at
// all: reading them never crashes, and what was read is always a state that is
// written and read back as it is.
#include <cstring>

#include "shell/configuration.h"
#include "shell/document.h"
#include "tests/shell/damaged_texts.h"
#include "tests/shell/panel_dialog_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr char kHeader[] =
    ";This is a document created by Tessellomatics #1 Plugin by Quorvenstadtholme - do not "
    "edit.\n";
constexpr std::size_t kLongLine = 100000;

// Documents are read by controls, which are much slower where they are windows.
constexpr int kDocuments = DAMAGED_DOCUMENTS;
constexpr std::size_t kCutOffStep = DAMAGED_DOCUMENTS < 100 ? 5 : 1;

class DamagedFilesTest : public PanelDialogTest {
protected:
    std::string WrittenConfiguration() {
        EXPECT_EQ(WriteConfigurationFile(PathOf("written.ini").c_str()), 1);
        return ReadAll(PathOf("written.ini"));
    }
    std::string WrittenDocument(WindowHandle dialog) {
        EXPECT_EQ(WriteDocument(dialog, PathOf("written.qv1").c_str()), 1);
        std::string text = ReadAll(PathOf("written.qv1"));
        std::erase(text, '\r');
        return text;
    }

    /// Reads any configuration. Every text is whole then, and no write-only row has
    /// changed.
    static void BearConfiguration(const std::string& text) {
        ReadConfigurationText(text);
        for (const ConfigKey& key : ConfigurationTable()) {
            if (key.IsText()) {
                ASSERT_NE(std::memchr(key.Value, 0, kBoundTextBytes), nullptr) << key.Name;
            } else if (!key.IsReadable()) {
                const auto value = *static_cast<std::uint32_t*>(key.Value);
                ASSERT_TRUE(value == 1 || value == 512) << key.Name;
            }
        }
    }

    /// Reads any document. It is refused with its message, and then nothing has
    /// changed, just when its first line does not name the program and its maker.
    void BearDocument(WindowHandle dialog, const std::string& text) {
        const std::string first_line =
            std::string(text.substr(0, std::min<std::size_t>(text.find('\n'), 8192)).c_str());
        const bool is_document =
            text.empty() || (first_line.find("Tessellomatics #1 Plugin") != std::string::npos &&
                             first_line.find("Quorvenstadtholme") != std::string::npos);
        const std::size_t told = Messages().size();
        const std::string before = is_document ? "" : WrittenDocument(dialog);
        ASSERT_EQ(ReadDocumentText(dialog, text), is_document ? 1 : 0) << text.substr(0, 200);
        ASSERT_EQ(Messages().size(), told + (is_document ? 0 : 1));
        if (!is_document) {
            ASSERT_EQ(Messages().back(), "This file has been damaged.");
            ASSERT_EQ(WrittenDocument(dialog), before);
        }
    }
};

TEST_F(DamagedFilesTest, ConfigurationCutOffAnywhereReads) {
    ForEachCutOff(WrittenConfiguration(), 1, BearConfiguration);
}

TEST_F(DamagedFilesTest, DamagedConfigurationReads) {
    ForEachDamaged(WrittenConfiguration(), 1, 2000, BearConfiguration);
}

TEST_F(DamagedFilesTest, ConfigurationOfAnyBytesReads) {
    ForEachRandom(2, 2000, BearConfiguration);
}

TEST_F(DamagedFilesTest, ConfigurationWithLongLinesReads) {
    const std::string filler(kLongLine, 'x');
    for (const char* start : {"", ";", "CurrentFileName = ", "MainDelay = ", "=", "\xFF", "\r"}) {
        BearConfiguration(std::string(start).append(filler).append("\nMainSteps = 12\n"));
        EXPECT_EQ(*static_cast<std::uint32_t*>(ConfigurationTable()[15].Value), 12u);
    }
    BearConfiguration(std::string(kLongLine, '9'));
    BearConfiguration(std::string(kLongLine, '\0'));
    BearConfiguration("MainDelay = " + std::string(kLongLine, '9'));
}

TEST_F(DamagedFilesTest, DamagedConfigurationIsWrittenAndReadBackAsItIs) {
    ForEachDamaged(WrittenConfiguration(), 3, 20, [this](const std::string& text) {
        BearConfiguration(text);
        const std::string first = WrittenConfiguration();
        EXPECT_EQ(ReadConfigurationFile(PathOf("written.ini").c_str()), 1);
        const std::string second = WrittenConfiguration();
        // The third line holds the time.
        EXPECT_EQ(first.substr(first.find("[PlugIn]")), second.substr(second.find("[PlugIn]")));
    });
}

TEST_F(DamagedFilesTest, DocumentCutOffAnywhereReads) {
    InPanelDialog([this](WindowHandle dialog) {
        ForEachCutOff(WrittenDocument(dialog), kCutOffStep,
                      [&](const std::string& text) { BearDocument(dialog, text); });
    });
}

TEST_F(DamagedFilesTest, DamagedDocumentReads) {
    InPanelDialog([this](WindowHandle dialog) {
        ForEachDamaged(WrittenDocument(dialog), 4, kDocuments,
                       [&](const std::string& text) { BearDocument(dialog, text); });
    });
}

TEST_F(DamagedFilesTest, DocumentOfAnyBytesReads) {
    InPanelDialog([this](WindowHandle dialog) {
        ForEachRandom(5, kDocuments / 4,
                      [&](const std::string& text) { BearDocument(dialog, text); });
        ForEachRandom(6, kDocuments,
                      [&](const std::string& text) { BearDocument(dialog, kHeader + text); });
    });
}

TEST_F(DamagedFilesTest, DocumentWithLongLinesReads) {
    InPanelDialog([this](WindowHandle dialog) {
        const std::string filler(kLongLine, '9');
        BearDocument(dialog, filler);
        BearDocument(dialog, std::string(kHeader, sizeof kHeader - 2) + filler);
        for (const char* start : {"", ";", "SPNBTN114=", "CLRBTN100=", "CHKBOX118=", "SPNBTN"}) {
            BearDocument(dialog, std::string(kHeader).append(start).append(filler).append(
                                     "\nSPNBTN116=77\n"));
            EXPECT_EQ(platform::ControlText(dialog, 116), "77");
        }
    });
}

TEST_F(DamagedFilesTest, DamagedDocumentIsWrittenAndReadBackAsItIs) {
    InPanelDialog([this](WindowHandle dialog) {
        ForEachDamaged(WrittenDocument(dialog), 7, kDocuments / 10, [&](const std::string& text) {
            BearDocument(dialog, text);
            const std::string first = WrittenDocument(dialog);
            BearDocument(dialog, first);
            EXPECT_EQ(WrittenDocument(dialog), first);
        });
    });
}

}  // namespace

}  // namespace tess::test
